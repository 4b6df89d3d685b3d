#pragma once

#include "platform/player/MediaFile.h"
#include "platform/player/Playback.h"

#include <QImage>
#include <QString>

#include <functional>
#include <memory>

/// What plays behind the player's window. It reads the one file that it is given, through
/// MediaFile, and opens nothing else, whatever that file refers to. No function waits unless it
/// says so.
class PlayerEngine {
public:
    /// Raised when State has changed, in the thread that creates the engine.
    std::function<void()> Changed;
    /// Raised when another picture can be drawn.
    std::function<void()> FrameReady;

    virtual ~PlayerEngine() = default;

    /// The engine that this program is built with. Throws RuntimeError where it cannot play.
    static std::unique_ptr<PlayerEngine> Make();

    virtual const Playback& State() const = 0;

    /// Opens a file and plays it from its beginning, in place of any other. `suffix`, the ending of
    /// its name without the dot, helps to recognise what it holds.
    virtual void Load(std::shared_ptr<MediaFile> file, const QString& suffix) = 0;
    /// Stops and closes the file. False when the device hangs: this engine is of no use then.
    virtual bool Stop() = 0;
    /// Waits until the file has failed or is known with the size of its film, but no longer than
    /// that. Returns whether it is known. Changed is not raised.
    virtual bool WaitUntilKnown(int milliseconds) = 0;
    /// Whether there is nothing left to wait for.
    virtual bool Known() const = 0;

    virtual void SetPaused(bool paused) = 0;
    /// Goes to a position in seconds.
    virtual void SeekTo(double position) = 0;
    /// 0 to 100.
    virtual void SetVolume(int percent) = 0;

    /// Draws the current picture over the whole image, whose format is RGB32.
    virtual void Render(QImage& image) = 0;
    /// Lets the film go on without drawing the current picture.
    virtual void Skip() = 0;
};
