#pragma once

#include <QByteArray>

#include <vector>

/// Small databases of all the shapes that the readers know, to start changing from.
std::vector<QByteArray> ITunesDBSeeds();

/// The library's file and the locations' file of a device, one behind the other, likewise.
std::vector<QByteArray> SqliteSeeds();
