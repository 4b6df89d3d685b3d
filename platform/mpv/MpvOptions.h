#pragma once

#include <mpv/client.h>

/// Makes the player, before it is initialised, one that shows a single local file and does nothing
/// else: no scripts, no settings of the user, no other files, no network.
/// Throws RuntimeError when it cannot be made so.
void SetMpvOptions(mpv_handle* mpv);
