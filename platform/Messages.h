#pragma once

#include "platform/RuntimeError.h"

#include <QString>

enum class MessageButtons { OK, OKCancel, YesNo, RetryCancel, AbortRetryIgnore };
enum class MessageIcon { Information, Question, Exclamation, Critical };
enum class MessageAnswer { OK, Cancel, Yes, No, Abort, Retry, Ignore };

/// Modal message boxes over the main window.
class Messages {
public:
    virtual ~Messages() = default;

    /// Shows the message and waits for an answer. Closing the box without one answers with the
    /// most careful button of the set: Cancel, No or Abort, and OK where it stands alone.
    virtual MessageAnswer Show(const QString& text, const QString& title, MessageButtons buttons,
                               MessageIcon icon) = 0;
};

/// Shows the user a failure that leaves nothing to decide.
void ShowError(Messages& messages, const RuntimeError& error);
