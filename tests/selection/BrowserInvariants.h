#pragma once

#include "tests/browser/BrowserFixture.h"

/// The whole library with the marks of today, whatever part of it is shown.
std::vector<ArtistRecord> WholeLibrary(const BrowserFixture& browser);

/// Fails the test unless records, row tables, lists, check marks, summary, buttons and full name
/// fit one another.
void ExpectInvariants(const BrowserFixture& browser);
