#pragma once

#include "platform/Messages.h"
#include "platform/RuntimeError.h"

#include <QString>

#include <functional>

/// What the job is working on, as its error messages name it.
struct CopyPlace {
    /// Path of the track's file on the device.
    QString Source;
    /// Folder of the track's copy, with a separator at its end.
    QString DestFolder;
    /// Name of the track's copy in DestFolder, or of the folder that is being made in there; empty
    /// until the copy is named.
    QString FileName;
};

/// How the job goes on after a step.
enum class ErrorAnswer {
    /// The failed step again.
    Retry,
    /// The step after it: it has succeeded, or the user ignores its failure.
    GoOn,
    /// A stop request, as if the user had pressed "&Cancel".
    Stop,
    /// The end of the job, without a question.
    Cleanup
};

/// Does `step`. A failure is told to the user, who is asked how to go on, until it succeeds or the
/// answer is not Retry.
ErrorAnswer TryStep(Messages& messages, const CopyPlace& place, const std::function<void()>& step);
