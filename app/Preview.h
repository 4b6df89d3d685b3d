#pragma once

#include "browser/LinkedLists.h"
#include "platform/Messages.h"
#include "platform/PatientFileSystem.h"

/// The song list, from whose menu the preview is chosen, and the main window.
struct SongControls {
    Window& Form1;
    ListControl& lstSongs;
};

/// The preview window and its player.
struct PreviewControls {
    Window& frmPreview;
    MediaPlayerControl& QTControl;
};

/// Plays the song or video of the current song row in a window of its own, which is kept for the
/// next preview.
class Preview {
public:
    Preview(LinkedLists& lists, PatientFileSystem& files, Messages& messages,
            const SongControls& controls, PreviewControls& preview);

    /// Waits until the device answers, unless the user closes the window meanwhile.
    void mnuPreview_Click();
    /// Gives the window the player's size.
    void QTControl_SizeChanged();
    /// Stops the player and closes the file. When the user closes the window, it is only hidden.
    void Form_QueryUnload(bool& Cancel, UnloadMode Mode);

private:
    void Play(int row);

    LinkedLists& m_lists;
    PatientFileSystem& m_files;
    Messages& m_messages;
    SongControls m_controls;
    PreviewControls& m_preview;
};
