#pragma once

#include <string>

/// The volumes that hold folders, by whatever path, link or mounted folder they are reached.

/// The topmost folder of the volume that holds an existing folder, as "E:\"; empty where the system
/// does not report it.
std::wstring VolumeOf(const std::wstring& folder);

/// Whether the volume of that topmost folder can be taken out or is connected by USB or
/// FireWire.
bool IsRemovableVolume(const std::wstring& root);

/// Whether an existing folder lies on an iPod.
bool IsOnIpodVolume(const std::wstring& folder);
