#include "app/ControlGroups.h"

LoadControls LoadControlsOf(const Form1Controls& all) {
    return {.Form1 = all.Form1,
            .Combo1 = all.Combo1,
            .lblMessage = all.lblMessage,
            .prgCopy = all.prgCopy};
}

DeviceControls DeviceControlsOf(const Form1Controls& all) {
    return {.Form1 = all.Form1,
            .Combo1 = all.Combo1,
            .Picture1 = all.Picture1,
            .lblMessage = all.lblMessage,
            .pctNoDevice = all.pctNoDevice,
            .timScan = all.timScan};
}
