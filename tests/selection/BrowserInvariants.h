#pragma once

#include "tests/browser/BrowserFixture.h"
#include "tests/selection/SelectionModel.h"

/// Fails the test unless records, row tables, lists, check marks, summary, buttons and full name
/// fit one another and the model.
void ExpectInvariants(const BrowserFixture& browser, const SelectionModel& model);
