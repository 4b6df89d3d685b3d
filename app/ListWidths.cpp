#include "app/ListWidths.h"

namespace {

void RaiseOne(float& width, float& first, float& second, float twipsPerPixel) {
    const float floor = 21 * twipsPerPixel;
    const float giverLimit = 20 * twipsPerPixel;
    if (floor <= width) {
        return;
    }
    const float missing = floor - width;
    width = floor;
    if (first - missing / 2 > giverLimit && second - missing / 2 > giverLimit) {
        first -= missing / 2;
        second -= missing / 2;
    } else if (first - missing > giverLimit) {
        first -= missing;
    } else if (second - missing > giverLimit) {
        second -= missing;
    }
}

} // namespace

void ListWidths::Rescale(float available) {
    const float total = Artists + Albums + Songs;
    const float ratio = available / total;
    Artists = ratio * Artists;
    Albums = ratio * Albums;
    Songs = ratio * Songs;
}

void ListWidths::RaiseToFloor(float twipsPerPixel) {
    RaiseOne(Songs, Artists, Albums, twipsPerPixel);
    RaiseOne(Artists, Songs, Albums, twipsPerPixel);
    RaiseOne(Albums, Songs, Artists, twipsPerPixel);
}
