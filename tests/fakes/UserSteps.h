#pragma once

#include "tests/fakes/FakeForm1.h"

/// Does what the user does, step after step: "artist Queen, tick song Bijou, type old song". A step
/// is "artist", "album" or "song" and the row to click ("All" for the "All" row); "tick" or
/// "untick" before that; "type" and the text that the search box then holds; "tab" and its caption;
/// "clear", "copy" or "close". Throws std::logic_error when there is no such row or step.
void ActOn(FakeForm1& form, const char* steps);
