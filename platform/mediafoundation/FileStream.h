#pragma once

#include "platform/mediafoundation/MediaFoundation.h"
#include "platform/player/WaveOfAiff.h"

#include <memory>

/// A file for COM to read, from its beginning. It can be closed at any moment, even during a read.
ComPointer<IStream> NewFileStream(std::shared_ptr<MediaFile> file);
ComPointer<IStream> NewFileStream(std::shared_ptr<WaveOfAiff> file);
