#include "tests/fakes/FakeServices.h"

#include "platform/RuntimeError.h"
#include "tests/fakes/FakeFaults.h"

#include <algorithm>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

/// The answers of a button set, the most careful one first.
std::vector<MessageAnswer> AnswersOf(MessageButtons buttons) {
    using enum MessageAnswer;
    switch (buttons) {
    case MessageButtons::OK:
        return {OK};
    case MessageButtons::OKCancel:
        return {Cancel, OK};
    case MessageButtons::YesNo:
        return {No, Yes};
    case MessageButtons::RetryCancel:
        return {Cancel, Retry};
    case MessageButtons::AbortRetryIgnore:
        return {Abort, Retry, Ignore};
    }
    throw std::logic_error("no such button set");
}

} // namespace

MessageAnswer FakeMessages::Show(const QString& text, const QString& title, MessageButtons buttons,
                                 MessageIcon icon) {
    FakeFaults::Call();
    const ShownMessage message{text, title, buttons, icon};
    Shown.push_back(message);
    if (WhileShown) {
        WhileShown(message);
    }
    const std::vector<MessageAnswer> possible = AnswersOf(buttons);
    if (Answers.empty()) {
        return possible.front();
    }
    const MessageAnswer answer = Answers.front();
    Answers.pop_front();
    if (std::find(possible.begin(), possible.end(), answer) == possible.end()) {
        throw std::logic_error("the message has no button for: " + text.toStdString());
    }
    return answer;
}

QStringList FakeMessages::Texts() const {
    QStringList texts;
    for (const ShownMessage& message : Shown) {
        texts.append(message.Text);
    }
    return texts;
}

void FakeEventLoop::BeginWork() {
    FakeFaults::Call();
}

void FakeEventLoop::Yield() {
    FakeFaults::Call();
    const int number = ++Yields;
    if (OnYield) {
        OnYield(number);
    }
}

QString FakeSettingsStore::Name() const {
    return u"/home/ana/settings"_s;
}

QString FakeSettingsStore::Read(const QString& key, const QString& defaultValue) {
    FakeFaults::Call();
    Reads.append(key);
    return Values.value(key, defaultValue);
}

void FakeSettingsStore::Write(const QString& key, const QString& value) {
    FakeFaults::Call();
    Writes.append(key);
    Values.insert(key, value);
}

bool FakeSettingsStore::Flush() {
    FakeFaults::Call();
    ++Flushes;
    return !FlushFails;
}

QString FakeShell::BrowseForFolder(WindowHandle owner, const QString& prompt,
                                   const QString& startFolder) {
    FakeFaults::Call();
    Owner = owner;
    Prompt = prompt;
    StartFolder = startFolder;
    return PickedFolder;
}

std::vector<Drive> FakeDriveService::Drives() {
    FakeFaults::Call();
    ++Listed;
    std::vector<Drive> drives;
    for (const FakeDrive& mounted : Mounted) {
        drives.push_back({mounted.Letter, QString(mounted.Letter) + u':'});
    }
    return drives;
}

bool FakeDriveService::IsRemovable(const Drive& drive) {
    FakeFaults::Call();
    const FakeDrive& mounted = Find(drive);
    if (mounted.IsRemovableFails) {
        throw RuntimeError(ErrorNumber::DeviceUnavailable);
    }
    return mounted.Removable;
}

QString FakeDriveService::VolumeName(const Drive& drive) {
    FakeFaults::Call();
    const FakeDrive& mounted = Find(drive);
    if (mounted.VolumeNameFails) {
        throw RuntimeError(ErrorNumber::DeviceUnavailable);
    }
    return mounted.VolumeName;
}

const FakeDrive& FakeDriveService::Find(const Drive& drive) const {
    const auto found = std::find_if(Mounted.begin(), Mounted.end(), [&](const FakeDrive& mounted) {
        return mounted.Letter == drive.Letter;
    });
    if (found == Mounted.end()) {
        throw RuntimeError(ErrorNumber::DeviceUnavailable);
    }
    return *found;
}
