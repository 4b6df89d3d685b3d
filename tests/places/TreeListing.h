#pragma once

#include "tests/fakes/Text.h"

#include <QString>
#include <QStringList>

/// Everything below `folder` but `except` and what lies in it: names, kinds, modes, inodes, numbers
/// of names, times of the last change, bytes and link targets, one line each, sorted. Links are not
/// followed, and only regular files are opened.
QStringList ListTree(const QString& folder, const QString& except = QString());

/// The files and links below `folder`, relative to it: "name" or "name -> target". Sorted.
QStringList FilesIn(const QString& folder);
