#pragma once

#include "platform/mediafoundation/MediaFoundation.h"
#include "platform/player/MediaFile.h"

#include <memory>

/// A file for COM to read. It can be closed at any moment, even during a read.
ComPointer<IStream> NewFileStream(std::shared_ptr<MediaFile> file);
