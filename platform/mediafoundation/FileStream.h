#pragma once

#include "platform/mediafoundation/MediaFoundation.h"
#include "platform/player/MediaFile.h"

#include <memory>

/// A file as COM reads it. It can be closed under COM's hands at any moment.
ComPointer<IStream> NewFileStream(std::shared_ptr<MediaFile> file);
