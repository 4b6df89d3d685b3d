#pragma once

#include "library/MusicLibrary.h"

#include <QStringList>

/// One line a track, in library order: "artist | album | number title | size | kind | location".
QStringList Lines(const MusicLibrary& library);
