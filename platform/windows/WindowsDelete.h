#pragma once

#include "platform/CopyControl.h"

#include <string>

/// Deletes the folder at `path`, as the system takes it, with all it holds. Links and junctions are
/// removed, never followed. Folders at which a volume is mounted are left alone, and so are the
/// folders above them; that is no error. What cannot be deleted does not keep the rest from it; the
/// first failure is thrown at the end as RuntimeError. Once `control` is stopped nothing more is
/// deleted.
void DeleteTree(const std::wstring& path, const CopyControl& control);
