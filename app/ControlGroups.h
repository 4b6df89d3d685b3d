#pragma once

#include "app/Form1Controls.h"
#include "app/Preview.h"
#include "app/Settings.h"
#include "copy/CopyJob.h"
#include "library/DeviceSelection.h"
#include "selection/CheckPropagation.h"

// Which of the window's controls each subsystem gets.

LoadControls LoadControlsOf(const Form1Controls& all);
DeviceControls DeviceControlsOf(const Form1Controls& all);
FittingControls FittingControlsOf(const Form1Controls& all);
ListControls ListControlsOf(const Form1Controls& all);
ArtistListControls ArtistListControlsOf(const Form1Controls& all);
SummaryControls SummaryControlsOf(const Form1Controls& all);
SearchControls SearchControlsOf(const Form1Controls& all);
CheckedListControls CheckedListControlsOf(const Form1Controls& all);
DestinationControls DestinationControlsOf(const Form1Controls& all);
LockedControls LockedControlsOf(const Form1Controls& all);
CopyControls CopyControlsOf(const Form1Controls& all);
SettingsControls SettingsControlsOf(const Form1Controls& all);
SongControls SongControlsOf(const Form1Controls& all);
