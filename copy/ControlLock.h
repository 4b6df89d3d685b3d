#pragma once

#include "platform/Form1Controls.h"

/// Disables everything that could change the library or the options while a copy job runs.
void DisableControls(Form1Controls& controls);

/// Enables it again; cmdClear only while a text search is in force (`SearchingText`).
void EnableControls(Form1Controls& controls, bool SearchingText);
