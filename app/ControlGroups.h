#pragma once

#include "library/DeviceSelection.h"
#include "platform/Form1Controls.h"

// What each subsystem gets of the window's controls.

LoadControls LoadControlsOf(const Form1Controls& all);
DeviceControls DeviceControlsOf(const Form1Controls& all);
