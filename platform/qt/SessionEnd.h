#pragma once

/// The desktop ends the session, or the system asks the program to quit: its windows are closed one
/// after the other, and nobody is there to answer a question. QGuiApplication::isSavingSession
/// reports only desktops that save their sessions, and not the closing itself.
namespace SessionEnd {

/// Whether this is happening now.
bool IsNow();
void SetNow(bool isNow);

} // namespace SessionEnd
