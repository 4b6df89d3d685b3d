#pragma once

#include <QFontMetrics>
#include <QString>

/// Makes texts fit to be shown. Names come from devices and file systems and may hold anything.
namespace ShownText {

/// The text on one line: line breaks and other control characters become blanks. A text longer than
/// any screen is wide is cut off, since laying out megabytes would freeze the window.
QString OneLine(const QString& text);

/// The text on one line of that width in pixels. Where it is too long, the middle of the quoted
/// path is left out; the file's name and all around the path stay. A file name that is itself too
/// long keeps both its ends.
QString FittingLine(const QString& text, const QFontMetrics& metrics, int width);

/// A caption without its access keys: "&x" is x, "&&" is "&".
QString WithoutAccessKeys(const QString& caption);

/// The text as a message: carriage returns break lines, long runs without a blank may be broken
/// anywhere, and what no screen can hold is cut off.
QString Message(const QString& text);

/// The text for a tool tip, which then shows it as it is, even if something in it looks like
/// markup.
QString ToolTip(const QString& text);

/// The text with each name that is read from right to left in that order, while artist, album and
/// title, or the folders of a quoted path, keep their order.
QString InReadingOrder(const QString& text);

} // namespace ShownText
