#pragma once

#include "app/Layout.h"
#include "platform/SettingsStore.h"
#include "platform/Shell.h"

/// Restores the user's settings when the window is made, and saves them when it closes.
class Settings {
public:
    Settings(SettingsStore& store, Shell& shell, WindowManager& windowManager, Layout& layout,
             Form1Controls& controls);

    /// Restores options and destination.
    void RestoreOptions();
    /// Restores the window's size, position and state.
    void RestoreWindow();
    /// Restores the splitters.
    void RestoreHandles();
    /// Saves everything.
    void Save();

private:
    /// A number of the store. Throws TypeMismatch, naming the key, when the text there is none.
    double ReadNumber(const QString& key, double defaultValue) const;
    void WriteNumber(const QString& key, double value);
    void RestoreBit(CheckControl& check, int mask, int bit);

    SettingsStore& m_store;
    Shell& m_shell;
    WindowManager& m_windowManager;
    Layout& m_layout;
    Form1Controls& m_controls;
};

/// The folder that the shell knows as the user's documents (`folderId` 5); empty for any other
/// number and where the shell knows none.
QString GetSpecialFolderName(Shell& shell, int folderId);
