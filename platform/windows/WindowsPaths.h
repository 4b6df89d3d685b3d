#pragma once

#include <QString>

#include <optional>
#include <string>

/// From path texts to what the system takes.

/// The path as the system is given it: absolute and taken literally ("\\?\C:\Music"), so that it
/// may be longer than 259 characters. Nothing for a text that leads nowhere here: one that begins
/// with neither a drive's letter nor a share, or has a name in it that is not usable.
std::optional<std::wstring> SystemPath(const QString& path);

/// Whether every program could open a file of that name, and would open no other: no character that
/// the system refuses, no half of a surrogate pair, no dot or blank at the end, no device's name.
/// Literal paths reach more than these, but "..", "NUL.mp3" or "song.mp3:stream" must lead nowhere.
bool IsUsableName(const QString& name);

/// The topmost folder of the drive or share of a path, as the system is given it and as some of its
/// functions want it: with a "\" at its end.
std::optional<std::wstring> SystemRoot(const QString& path);
