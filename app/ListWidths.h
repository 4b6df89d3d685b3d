#pragma once

/// The widths of the three lists in twips, shared out anew when the window is resized.
struct ListWidths {
    float Artists, Albums, Songs;

    /// Shares `available` twips in the ratio of the widths.
    void Rescale(float available);
    /// Widens each list that is narrower than 21 pixels, at its neighbours' cost as long as these
    /// stay wider than 20 pixels. Two different numbers, and a sum that may end wider than before
    /// where no neighbour can give: both are meant.
    void RaiseToFloor(float twipsPerPixel);
};
