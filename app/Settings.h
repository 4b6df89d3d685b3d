#pragma once

#include "app/Layout.h"
#include "platform/SettingsStore.h"
#include "platform/Shell.h"

/// What the settings keep.
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

    /// Throws RuntimeError, naming the key, when the store holds a text where a number belongs or
    /// one out of range. Changes nothing, so that a start can stop before there is a window.
    void Check() const;
    /// Restores options and destination.
    void RestoreOptions();
    /// Restores the window's size, position and state.
    void RestoreWindow();
    /// Restores the splitters.
    void RestoreHandles();
    /// Where the settings are kept, for the user.
    QString StoreName() const;
    /// Saves everything. False when the store cannot keep it.
    bool Save();

private:
    double ReadNumber(const QString& key, double defaultValue) const;
    int ReadMask(const QString& key, int defaultValue) const;
    /// What an area takes in one direction.
    struct Extent {
        double Begin, Length;
    };
    /// The position of a window of that length, or the centred one where none is saved, where the
    /// window would lie off all screens, and where it was too long for them and is cut.
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

/// The folder that the shell knows as the user's documents (`folderId` 5); empty for any other
/// number and where the shell knows none.
QString GetSpecialFolderName(Shell& shell, int folderId);
