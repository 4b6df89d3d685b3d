#pragma once

#include <QFontMetrics>
#include <QString>

/// How texts are made fit to be shown. Names come from devices and file systems and may hold
/// anything.
namespace ShownText {

/// The text on one line: line breaks and other control characters become blanks. What is longer
/// than any screen is wide is cut off, since laying out megabytes would stop the window.
QString OneLine(const QString& text);

/// The text on one line of that width: where it is too long, the middle of the path that it quotes
/// is left out. The file's name and all around the path stay; of a name that is too long itself
/// both ends do.
QString FittingLine(const QString& text, const QFontMetrics& metrics, int width);

/// A caption without its access keys: "&x" is x, "&&" is "&".
QString WithoutAccessKeys(const QString& caption);

/// The text as a message: carriage returns break lines, long runs without a blank can be broken
/// anywhere, and what no screen can hold is cut off.
QString Message(const QString& text);

/// What a tool tip is given so that it shows the text as it is, whatever looks like markup in it.
QString ToolTip(const QString& text);

/// The text with names that read from right to left each in that order, while what they are parts
/// of keeps its own: artist, album and title, or the folders of a quoted path.
QString InReadingOrder(const QString& text);

} // namespace ShownText
