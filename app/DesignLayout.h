#pragma once

#include "app/Form1Controls.h"
#include "platform/WindowManager.h"

/// Lays the main window out at its design size: every control takes the size that suits it (which
/// it has on entry) and its place, whatever the font. Later resizes keep the distances made here.
void LayOutDesign(Form1Controls& controls, WindowManager& windowManager);
