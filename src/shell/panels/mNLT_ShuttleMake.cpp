#include "shell/panels/mNLT_ShuttleMake.h"

#include "shell/Controls.h"
#include "shell/mMain.h"
#include "shell/ucFrame.h"
#include "tools/mNLT_ShuttleMake.h"
#include "track/TrackDocument.h"

namespace railwright {
namespace {

constexpr const char* HelpText =
    "    Shuttle Coasters can only be created from a Non-Circut track.  This will double back "
    "new track segments that line up over the existing track.  It is important to not use "
    "\"Relative Roll\" in your track.  The reason for this is because a relative roll works in "
    "the direction the track is flowing.  As the shuttle maker builds new track it is working in "
    "reverse order.  This will cause segments that use relative roll to not overlap the existing "
    "track correctly.  Think of it this way, using relative roll between 2 points: Point 1's "
    "relative roll is 90, point 2's relative roll is 90.  The actual roll at point 2 is 180.  "
    "Now if I do it backwards point 2's actual roll is 90 (not 180), and point 1's actual roll "
    "is 180 (not 90).  So the new track will not overlap correctly.  When making a shuttle "
    "coaster, stay away from using relative roll.";

} // namespace

ShuttleMakePanel::ShuttleMakePanel(ucFrame& frame)
    : btnTShuttle(AddButton(frame, "btnTShuttle", "Make Shuttle", {180, 180, 2355, 375})) {
    AddHelpText(frame, "Label8", HelpText, {180, 720, 7215, 5175});
    QObject::connect(btnTShuttle, &QPushButton::clicked, btnTShuttle, [this] { btnTShuttle_Click(); });
    if (iDocumentKind == CurrentDocument::Track)
        UpdateShuttleButton();
}

void ShuttleMakePanel::Refresh(const TrackMeasures& /*measures*/) {
    UpdateShuttleButton();
}

void ShuttleMakePanel::UpdateShuttleButton() {
    btnTShuttle->setEnabled(!Track.SegmentList.ClosedCircuit);
}

void ShuttleMakePanel::btnTShuttle_Click() {
    ApplyTrackTool(MakeShuttle);
}

} // namespace railwright
