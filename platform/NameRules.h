#pragma once

#include <QString>

/// What every file service holds the names of files and folders to.

/// The name, beside the target, of a copy that is not whole yet or about to take an earlier file's
/// place. It is short and fixed, so that the longest target name works and the next copy into the
/// folder removes what a killed one has left.
inline constexpr char PartName[] = ".songlift.part";

/// Throws PermissionDenied for a name that is PartName on some disk. Nothing may be given it: the
/// next copy into the folder would take it for its own leftover.
void RequireNoPartName(const QString& name);

/// Throws BadFileName for a new folder whose name the drives that people carry away cannot hold; it
/// is refused on every drive.
void RequireFolderName(const QString& path);

/// Windows and the file systems it brought along drop these at the end of a name.
QString WithoutDotsAndBlanksAtEnd(QString text);

/// Whether Windows takes the name for a device, which it does for what stands before the first dot,
/// in any case.
bool IsDeviceName(const QString& name);
