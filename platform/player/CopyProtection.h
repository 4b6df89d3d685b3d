#pragma once

#include "platform/player/MediaFile.h"

/// Whether the file is an MPEG-4 file with a track that is encrypted for the devices of its buyer.
/// Nobody else can play it, and trying would make noise. Leaves the file at some other position.
bool IsCopyProtected(MediaFile& file);
