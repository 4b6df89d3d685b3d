#pragma once

/// What a file system can hold as the name of a file or folder.
struct NameLimits {
    enum class Unit {
        Utf8Bytes,
        Utf16Units,
        /// With every accent apart from its letter, as HFS+ keeps names.
        DecomposedUtf16Units
    };

    /// The longest name, counted in `CountedIn`.
    int Longest = 255;
    Unit CountedIn = Unit::Utf8Bytes;
    /// Names go by the rules of Windows: no control characters, no dot or blank at the end, and no
    /// name of a device ("CON", "NUL.mp3"), which there nobody could open.
    bool IsForWindows = false;

    bool operator==(const NameLimits&) const = default;
};
