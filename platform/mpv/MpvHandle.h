#pragma once

#include "platform/mpv/MediaFile.h"
#include "platform/mpv/MpvRenderer.h"
#include "platform/mpv/Playback.h"

#include <mpv/client.h>
#include <mpv/stream_cb.h>

#include <QByteArray>
#include <QObject>

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>

/// The player behind the window. It reads the one file it is given through us and opens nothing
/// else, whatever that file refers to. Nothing here waits for the player, except where it says so.
class MpvHandle {
public:
    /// Raised when State has changed, in the thread that creates the player.
    std::function<void()> Changed;
    /// Raised when another picture can be drawn.
    std::function<void()> FrameReady;

    /// Throws RuntimeError when there is no player.
    MpvHandle();
    /// A player that hangs in a device's read is left to a thread of its own.
    ~MpvHandle();
    MpvHandle(const MpvHandle&) = delete;
    MpvHandle& operator=(const MpvHandle&) = delete;

    const Playback& State() const { return m_state; }
    MpvRenderer& Renderer() { return *m_renderer; }

    /// Plays an open file from its beginning, in place of any other. `suffix`, the ending of its
    /// name without the dot, helps to recognise what it holds.
    void Load(std::shared_ptr<MediaFile> file, const QString& suffix);
    /// Stops and closes the file. False when the device hangs: this player is of no use then.
    bool Stop();
    /// Waits until the file has failed or is known with the size of its film, but no longer than
    /// that. Returns whether it is known. Changed is not raised.
    bool WaitUntilKnown(int milliseconds);
    /// Whether there is nothing left to wait for.
    bool Known() const;

    void SetPaused(bool paused);
    /// Goes to a position in seconds.
    void SeekTo(double position);
    /// 0 to 100.
    void SetVolume(int percent);

private:
    void SendSeek(double position);
    struct Terminate {
        void operator()(mpv_handle* mpv) const { mpv_terminate_destroy(mpv); }
    };

    /// The file that may be read, and its address. The player's threads look at it.
    struct Source {
        std::mutex Mutex;
        std::shared_ptr<MediaFile> File;
        QByteArray Address;
    };

    static int OpenStream(void* self, char* address, mpv_stream_cb_info* info);

    void HearWakeup();
    void HandleEvents();
    bool Handle(const mpv_event& event);
    bool HandleReply(const mpv_event& event);
    bool HandleLoadReply(const mpv_event& event);
    bool HandleProperty(const mpv_event& event);
    bool HandleEnd(qint64 entry);
    void AskForPicture();
    void TakeTracks(const mpv_node& tracks);
    void TakePictureSize(const mpv_node& parameters);
    void ForgetFile(Playback::Stage stage);
    void Fail();
    bool CloseFile();
    quint64 ReplyId(int question) const;

    /// Wakeups come from the player's threads; this brings them here, and drops them when the
    /// player goes.
    QObject m_receiver;
    std::atomic<bool> m_wakeupUnderWay = false;

    /// Shared with the thread that a hanging player is left to.
    std::shared_ptr<Source> m_source = std::make_shared<Source>();

    Playback m_state;
    /// The file plays, or stands at a picture; before that the player drops every seek.
    bool m_started = false;
    /// The player is on its way to another position.
    bool m_seeking = false;
    /// Counts the files, so that late answers about an earlier one are known.
    quint64 m_load = 0;
    /// The player's own numbers of the file that counts, and of those that it began to open and
    /// opened last; -1 for none.
    qint64 m_entry = -1;
    qint64 m_startedEntry = -1;
    qint64 m_loadedEntry = -1;

    // Last, since they must go first: their threads use all of the above.
    std::unique_ptr<mpv_handle, Terminate> m_mpv;
    std::unique_ptr<MpvRenderer> m_renderer;
};
