#pragma once

#include "browser/LinkedLists.h"
#include "platform/FileSystem.h"
#include "platform/Messages.h"

/// The list that the preview is chosen in, and its window.
struct SongControls {
    Window& Form1;
    ListControl& lstSongs;
};

/// The preview window and its player.
struct PreviewControls {
    Window& frmPreview;
    MediaPlayerControl& QTControl;
};

/// Plays the song or video of the current song row in a window of its own, which is kept and used
/// again for the next preview.
class Preview {
public:
    Preview(LinkedLists& lists, FileSystem& files, Messages& messages, const SongControls& controls,
            PreviewControls& preview);

    void mnuPreview_Click();
    /// Gives the window the player's size.
    void QTControl_SizeChanged();
    /// Closing by the user only hides the window, and stops and releases the file.
    void Form_QueryUnload(bool& Cancel, UnloadMode Mode);

private:
    LinkedLists& m_lists;
    FileSystem& m_files;
    Messages& m_messages;
    SongControls m_controls;
    PreviewControls& m_preview;
};
