#include "platform/mpv/MpvOptions.h"

#include "platform/RuntimeError.h"

#include <iterator>

namespace {

struct Option {
    const char* Name;
    const char* Value;
};

// If one of these cannot be set, the player could open or do more than it should, so it is not
// used.
constexpr Option required[] = {
    {"config", "no"},
    {"terminal", "no"},
    {"vo", "libmpv"},
    {"hwdec", "no"},
    // Its other readers know lists and links that lead to further files.
    {"demuxer", "lavf"},
    {"access-references", "no"},
    {"load-unsafe-playlists", "no"},
    {"autoload-files", "no"},
    {"sub-auto", "no"},
    {"audio-file-auto", "no"},
    {"cover-art-auto", "no"},
    {"ordered-chapters", "no"},
    {"resume-playback", "no"},
    {"save-position-on-quit", "no"},
    {"keep-open", "yes"},
    // Drawing without a graphics card, the player ends the program over a film that it is to turn.
    // The window turns it.
    {"video-rotate", "no"},
};

// Not every build of the player has these; one without them has nothing to switch off.
constexpr Option optional[] = {
    {"load-scripts", "no"},
    {"load-stats-overlay", "no"},
    {"load-osd-console", "no"},
    {"load-auto-profiles", "no"},
    {"ytdl", "no"},
    {"osc", "no"},
    {"osd-level", "0"},
    {"input-default-bindings", "no"},
    {"input-builtin-bindings", "no"},
    {"input-vo-keyboard", "no"},
    {"input-media-keys", "no"},
    {"stop-screensaver", "no"},
    {"sid", "no"},
    // A machine without a sound device plays silently.
    {"ao", "pulse,pipewire,alsa,null"},
    {"audio-fallback-to-null", "yes"},
    {"audio-client-name", "Songlift"},
    {"force-media-title", "Songlift"},
    {"volume-max", "100"},
    // A file on a disk needs no cache beside the system's.
    {"cache", "no"},
    // The window gives the picture its shape, and draws each as soon as it comes.
    {"keepaspect", "no"},
    {"video-timing-offset", "0"},
};

void Require(int result) {
    if (result < 0) {
        throw RuntimeError(ErrorNumber::DeviceUnavailable);
    }
}

/// Only containers that hold their media themselves, and no way to open anything else.
void RestrictFormats(mpv_handle* mpv) {
    char formatsName[] = "format_whitelist";
    char formats[] = "mov,mp3,aac,ac3,wav,aiff,caf,aa,mpeg,avi";
    char protocolsName[] = "protocol_whitelist";
    char protocols[] = "none";
    char* names[] = {formatsName, protocolsName};
    mpv_node values[2] = {};
    values[0].format = MPV_FORMAT_STRING;
    values[0].u.string = formats;
    values[1].format = MPV_FORMAT_STRING;
    values[1].u.string = protocols;
    mpv_node_list list = {static_cast<int>(std::size(values)), values, names};
    mpv_node map = {};
    map.format = MPV_FORMAT_NODE_MAP;
    map.u.list = &list;
    Require(mpv_set_option(mpv, "demuxer-lavf-o", MPV_FORMAT_NODE, &map));
}

} // namespace

void SetMpvOptions(mpv_handle* mpv) {
    for (const Option& option : required) {
        Require(mpv_set_option_string(mpv, option.Name, option.Value));
    }
    RestrictFormats(mpv);
    for (const Option& option : optional) {
        mpv_set_option_string(mpv, option.Name, option.Value);
    }
}
