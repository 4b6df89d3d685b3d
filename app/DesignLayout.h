#pragma once

#include "app/Form1Controls.h"
#include "platform/WindowManager.h"

/// Gives every control of the main window its place and size in the design, whatever the font: on
/// entry each control has the size that suits it. Later resizes keep the distances made here.
void LayOutDesign(Form1Controls& controls, WindowManager& windowManager);
