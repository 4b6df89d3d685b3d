#pragma once

#include "platform/mpv/MpvRenderer.h"
#include "platform/player/PlayerEngine.h"

#include <mpv/client.h>
#include <mpv/stream_cb.h>

#include <QByteArray>
#include <QObject>

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>

/// Plays with mpv.
class MpvHandle : public PlayerEngine {
public:
    /// Throws RuntimeError when there is no player.
    MpvHandle();
    /// A player that hangs in a device's read is left to a thread of its own.
    ~MpvHandle() override;
    MpvHandle(const MpvHandle&) = delete;
    MpvHandle& operator=(const MpvHandle&) = delete;

    const Playback& State() const override { return m_state; }

    void Load(std::shared_ptr<MediaFile> file, const QString& suffix) override;
    bool Stop() override;
    bool WaitUntilKnown(int milliseconds) override;
    bool Known() const override;

    void SetPaused(bool paused) override;
    void SeekTo(double position) override;
    void SetVolume(int percent) override;

    void Render(QImage& image) override { m_renderer->Render(image); }
    void Skip() override { m_renderer->Skip(); }

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
    /// The device hung when the last file was to be closed.
    bool m_hangs = false;

    // Last, since they must go first: their threads use all of the above.
    std::unique_ptr<mpv_handle, Terminate> m_mpv;
    std::unique_ptr<MpvRenderer> m_renderer;
};
