#pragma once

#include "platform/FileSystem.h"

/// One folder for all test files of this process, and the files of the system that the tests run
/// on. The folder goes with the process.
namespace SharedFolder {

/// Its path, as Qt takes it.
QString Path();
/// The path of something in it, of names separated by "/" or "\", by the letter of a drive.
QString OnDrive(const QString& below);
/// The same in native form.
QString Native(const QString& below);
FileSystem& Files();

} // namespace SharedFolder
