#include "copy/CopyErrors.h"

#include "platform/Paths.h"

#include <exception>

using namespace Qt::StringLiterals;

namespace {

QString Quoted(const QString& text) {
    return u'"' + text + u'"';
}

ErrorAnswer Ask(Messages& messages, const QString& text, MessageButtons buttons, MessageIcon icon) {
    switch (messages.Show(text, u"Error"_s, buttons, icon)) {
    case MessageAnswer::Retry:
        return ErrorAnswer::Retry;
    case MessageAnswer::Ignore:
        return ErrorAnswer::GoOn;
    default:
        return ErrorAnswer::Stop;
    }
}

/// Tells the user what failed and asks how to go on.
ErrorAnswer AskAboutError(Messages& messages, const RuntimeError& error, const CopyPlace& place) {
    switch (error.Number) {
    case ErrorNumber::FileNotFound:
        return Ask(messages, u"File not found: "_s + Quoted(place.Source),
                   MessageButtons::AbortRetryIgnore, MessageIcon::Exclamation);
    case ErrorNumber::PathNotFound:
        return Ask(messages, u"Path not found: "_s + Quoted(Paths::ParentFolder(place.Source)),
                   MessageButtons::AbortRetryIgnore, MessageIcon::Exclamation);
    case ErrorNumber::DiskFull:
        return Ask(messages, u"This drive is full."_s, MessageButtons::RetryCancel,
                   MessageIcon::Exclamation);
    case ErrorNumber::PermissionDenied:
        return Ask(messages,
                   u"Unable to create file: "_s + Quoted(place.DestFolder + place.FileName),
                   MessageButtons::AbortRetryIgnore, MessageIcon::Critical);
    default:
        ShowError(messages, error);
        return ErrorAnswer::Cleanup;
    }
}

} // namespace

ErrorAnswer TryStep(Messages& messages, const CopyPlace& place, const std::function<void()>& step) {
    for (;;) {
        try {
            step();
            return ErrorAnswer::GoOn;
        } catch (const std::exception& exception) {
            const ErrorAnswer answer = AskAboutError(messages, ErrorOf(exception), place);
            if (answer != ErrorAnswer::Retry) {
                return answer;
            }
        }
    }
}
