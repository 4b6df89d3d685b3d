#pragma once

#include "app/Layout.h"
#include "platform/SettingsStore.h"
#include "platform/Shell.h"

/// The controls whose state is kept in the settings.
struct SettingsControls {
    Window& Form1;
    HandleControl& Handle0;
    HandleControl& Handle1;
    CheckControl& chkArtist;
    CheckControl& chkAlbum;
    CheckControl& chkArtistName;
    CheckControl& chkAlbumName;
    CheckControl& chkTrackNum;
    TextControl& txtDestination;
};

/// Restores the user's settings when the window is made, and saves them when it closes.
class Settings {
public:
    Settings(SettingsStore& store, Shell& shell, WindowManager& windowManager, Layout& layout,
             const SettingsControls& controls);

    /// Throws RuntimeError, naming the key, when the store holds no number where one belongs, or
    /// one out of range. Changes nothing, so that the start can end before a window is shown.
    void Check() const;
    /// Restores the options and the destination.
    void RestoreOptions();
    /// Restores the window's size, position and state.
    void RestoreWindow();
    /// Restores the splitters.
    void RestoreHandles();
    /// Where the settings are kept, as shown to the user.
    QString StoreName() const;
    /// Saves everything. False when the store cannot be written.
    bool Save();

private:
    double ReadNumber(const QString& key, double defaultValue) const;
    int ReadMask(const QString& key, int defaultValue) const;
    /// Where an area begins and how long it is, in one direction.
    struct Extent {
        double Begin, Length;
    };
    /// The saved position of a window of that length. The window is centred instead where no
    /// position is saved, where it would lie off all screens, and where it was cut because it was
    /// too long.
    double ReadPosition(const QString& key, double length, Extent work, Extent all,
                        bool isCut) const;
    void WriteNumber(const QString& key, double value);
    void RestoreBit(CheckControl& check, int mask, int bit);

    SettingsStore& m_store;
    Shell& m_shell;
    WindowManager& m_windowManager;
    Layout& m_layout;
    SettingsControls m_controls;
};

/// The user's documents folder for `folderId` 5; empty for any other number, and where the shell
/// knows no such folder.
QString GetSpecialFolderName(Shell& shell, int folderId);
