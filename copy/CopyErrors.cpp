#include "copy/CopyErrors.h"

#include "platform/Paths.h"

namespace {

QString Quoted(const QString& text) {
    return QLatin1Char('"') + text + QLatin1Char('"');
}

ErrorAnswer Ask(Messages& messages, const QString& text, MessageButtons buttons, MessageIcon icon) {
    switch (messages.Show(text, QStringLiteral("Error"), buttons, icon)) {
    case MessageAnswer::Retry:
        return ErrorAnswer::Retry;
    case MessageAnswer::Ignore:
        return ErrorAnswer::Ignore;
    default:
        return ErrorAnswer::Stop;
    }
}

} // namespace

ErrorAnswer AskAboutError(Messages& messages, const RuntimeError& error, const CopyPlace& place) {
    switch (error.Number) {
    case ErrorNumber::FileNotFound:
        return Ask(messages, QStringLiteral("File not found: ") + Quoted(place.Source),
                   MessageButtons::AbortRetryIgnore, MessageIcon::Exclamation);
    case ErrorNumber::PathNotFound:
        return Ask(messages,
                   QStringLiteral("Path not found: ") + Quoted(Paths::ParentFolder(place.Source)),
                   MessageButtons::AbortRetryIgnore, MessageIcon::Exclamation);
    case ErrorNumber::DiskFull:
        return Ask(messages, QStringLiteral("This drive is full."), MessageButtons::RetryCancel,
                   MessageIcon::Exclamation);
    case ErrorNumber::PermissionDenied:
        return Ask(messages,
                   QStringLiteral("Unable to create file: ") +
                       Quoted(place.DestFolder + place.FileName),
                   MessageButtons::AbortRetryIgnore, MessageIcon::Critical);
    default:
        ShowError(messages, error);
        return ErrorAnswer::Cleanup;
    }
}
