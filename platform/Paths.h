#pragma once

#include <QString>

/// A path text is in drive form (`E:\Music\Song.mp3`), on a share of the network
/// (`\\server\share\Music`), which only Windows reaches, or in native form (`/home/ana/Music`),
/// which only Linux has. These helpers join, cut and compare any form without looking at the disk.
namespace Paths {

/// Longer texts are no paths, and trying their thousands of folders would take minutes.
constexpr qsizetype LongestPath = 32767;

/// Whether `path` begins with a drive letter and a colon.
bool IsDriveForm(const QString& path);

/// What separates the folders of `path`: "/" in native form, "\\" in the others.
QChar Separator(const QString& path);

/// `folder` with one separator added, unless it ends in one already.
QString WithSeparator(const QString& folder);

/// The path of `name` inside `folder`.
QString Join(const QString& folder, const QString& name);

/// The folder that holds `path` (`C:\Music` for `C:\Music\New`, `C:\` for `C:\Music`); empty for a
/// root and for a bare name.
QString ParentFolder(const QString& path);

/// The last part of `path`, after its last separator.
QString FileName(const QString& path);

/// The text after the last dot of the path's file name; empty where there is no dot.
QString Extension(const QString& path);

/// The drive part: `C:` in drive form, `\\server\share` on a share, "/" in native form, empty where
/// the text is none of these.
QString DrivePart(const QString& path);

} // namespace Paths
