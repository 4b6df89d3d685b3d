#pragma once

#include "platform/Drives.h"
#include "platform/EventLoop.h"
#include "platform/Messages.h"
#include "platform/SettingsStore.h"
#include "platform/Shell.h"
#include "platform/Worker.h"

#include <QMap>
#include <QString>
#include <QStringList>

#include <deque>
#include <functional>
#include <vector>

struct ShownMessage {
    QString Text = {};
    QString Title = {};
    MessageButtons Buttons = MessageButtons::OK;
    MessageIcon Icon = MessageIcon::Information;

    bool operator==(const ShownMessage&) const = default;
};

/// Message boxes answered by a script.
class FakeMessages : public Messages {
public:
    /// What was shown, in order.
    std::vector<ShownMessage> Shown;
    /// The answers still to give. When they have run out, the user closes the box, which gives the
    /// most careful answer.
    std::deque<MessageAnswer> Answers;
    /// Runs while a message stands on the screen.
    std::function<void(const ShownMessage&)> WhileShown;

    /// Throws std::logic_error when the next scripted answer has no button.
    MessageAnswer Show(const QString& text, const QString& title, MessageButtons buttons,
                       MessageIcon icon) override;

    /// The texts of Shown.
    QStringList Texts() const;
};

/// An event loop in which the test plays the user.
class FakeEventLoop : public EventLoop {
public:
    int Yields = 0;
    /// Runs inside each yield, with the number of that yield, from 1 on.
    std::function<void(int)> OnYield;
    /// The user has closed the window.
    bool IsClosed = false;
    /// How long the program may work without a yield.
    qint64 ToYield = 0;

    void BeginWork() override;
    void Yield() override;
    qint64 MillisecondsToYield() const override { return ToYield; }
    bool YieldHoldingInput() override { return !IsClosed; }
};

/// Does everything at once, on the caller's thread.
class InlineWorker : public Worker {
public:
    bool Do(std::function<void()> work, const std::function<bool()>&) override {
        work();
        return true;
    }
    void DoLater(std::function<void()> work) override { work(); }
};

class FakeSettingsStore : public SettingsStore {
public:
    QMap<QString, QString> Values;
    /// The keys read and written, in order.
    QStringList Reads;
    QStringList Writes;
    int Flushes = 0;
    bool FlushFails = false;

    QString Name() const override;
    QString Read(const QString& key, const QString& defaultValue) override;
    void Write(const QString& key, const QString& value) override;
    bool Flush() override;
};

class FakeShell : public Shell {
public:
    /// What the user picks next; empty cancels.
    QString PickedFolder;
    QString Documents;

    /// What the last picker was opened with.
    WindowHandle Owner = 0;
    QString Prompt;
    QString StartFolder;

    QString BrowseForFolder(WindowHandle owner, const QString& prompt,
                            const QString& startFolder) override;
    QString DocumentsFolder() override { return Documents; }
};

struct FakeDrive {
    QChar Letter = {};
    QString VolumeName = {};
    bool Removable = true;
    /// The drive is being unplugged: the question raises "Device unavailable".
    bool IsRemovableFails = false;
    bool VolumeNameFails = false;
};

class FakeDriveService : public DriveService {
public:
    /// The mounted drives, in the system's order.
    std::vector<FakeDrive> Mounted;
    /// How often the drives were listed.
    int Listed = 0;

    std::vector<Drive> Drives() override;
    /// Both throw "Device unavailable" for a drive that is not mounted any more.
    bool IsRemovable(const Drive& drive) override;
    QString VolumeName(const Drive& drive) override;

private:
    const FakeDrive& Find(const Drive& drive) const;
};
