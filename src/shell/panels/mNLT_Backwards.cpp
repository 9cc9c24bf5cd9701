#include "shell/panels/mNLT_Backwards.h"

#include "shell/Controls.h"
#include "shell/mMain.h"
#include "shell/ucFrame.h"
#include "tools/mNLT_Backwards.h"

namespace railwright {
namespace {

constexpr const char* HelpText =
    "    Because NoLimits does not support trains running backwards on the track, there are a "
    "few limitations of what NoLimits can do.  You will be limited to only 1 train on the track. "
    " This is because NoLimits places trains on the block segment behind the station.  In this "
    "case, it would go on the lift hill and it would immediately come down and crash into the "
    "train in the station.  Do not use \"Relative Roll\" in your track.  This is because the "
    "track is literally rebuilt backwards.  Thus a relative roll would be backwards causing the "
    "same effect you would see in the Shuttle Maker.  Speed and Acceleration values are modified "
    "to be negative values.  However, since NoLimits does not directly support negative values, "
    "the speed does not directly translate to a negative value.  For example 10mph is not -10mph "
    "(it's more like -1.25).  Some additional tweaking may be required using Vesna's Drive Tuner.";

} // namespace

BackwardsPanel::BackwardsPanel(ucFrame& frame) {
    QPushButton* const button =
        AddButton(frame, "btnTBackwards", "Rebuild Track Backwards", {180, 180, 2355, 375});
    AddHelpText(frame, "Label9", HelpText, {180, 720, 7215, 5175});
    QObject::connect(button, &QPushButton::clicked, button, [this] { btnTBackwards_Click(); });
}

void BackwardsPanel::btnTBackwards_Click() {
    ApplyTrackTool(RebuildBackwards);
}

} // namespace railwright
