#pragma once

/// The widths of the three lists in twips, recomputed when the window is resized.
struct ListWidths {
    float Artists, Albums, Songs;

    /// Shares `available` twips in the ratio of the widths.
    void Rescale(float available);
    /// Widens each list that is narrower than 21 pixels, at its neighbours' cost as long as these
    /// stay wider than 20 pixels. Where no neighbour can give way, the sum of the widths grows: a
    /// list that cannot be seen would be worse.
    void RaiseToFloor(float twipsPerPixel);
};
