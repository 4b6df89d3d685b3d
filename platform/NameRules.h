#pragma once

#include <QString>

/// Rules on names of files and folders that every file service keeps.

/// The name, beside the target, of a copy that is not complete yet or is about to replace an
/// earlier file. It is short and fixed, so that even the longest target name works, and so that the
/// next copy into the folder removes what a killed one has left.
inline constexpr char PartName[] = ".songlift.part";

/// Throws PermissionDenied for a name that some disk takes for PartName. No file may get it: the
/// next copy into the folder would take that file for its own leftover.
void RequireNoPartName(const QString& name);

/// Throws BadFileName for a new folder whose name removable drives often cannot hold; it is refused
/// on every drive.
void RequireFolderName(const QString& path);

/// The same text for names that differ only in case or in how accents are composed.
QString FoldedName(const QString& name);

/// Windows and its file systems drop these at the end of a name.
QString WithoutDotsAndBlanksAtEnd(QString text);

/// Whether Windows takes the name for a device. It looks only at what is before the first dot, in
/// any case.
bool IsDeviceName(const QString& name);
