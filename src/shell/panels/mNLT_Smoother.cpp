#include "shell/panels/mNLT_Smoother.h"

#include "shell/Controls.h"
#include "shell/mMain.h"
#include "shell/ucFrame.h"
#include "tools/mNLT_Smoother.h"
#include "track/TrackDocument.h"

#include <QLabel>

namespace railwright {

SmootherPanel::SmootherPanel(ucFrame& frame) {
    QPushButton* const button = AddButton(frame, "btnTSmoother", "Smooth Track Nodes", {180, 180, 2355, 375});
    lblTSmoother =
        AddLabel(frame, "lblTSmoother", "", {180, 720, 7215, 195}, ControlFont(8.25, {.Bold = true}));
    QLabel* const credit =
        AddLabel(frame, "Label20", "Node Smoother by the Railwright contributors", {60, 5820, 7455, 195});
    credit->setAlignment(Qt::AlignCenter);
    QObject::connect(button, &QPushButton::clicked, button, [this] { btnTSmoother_Click(); });
}

void SmootherPanel::Prepare() {
    const std::int32_t nodes = Track.BezierCurve.NodeCount;
    lblTSmoother->setText(
        nodes <= SmootherNodeLimit
            ? QString()
            : QString("This track is too long to be smoothed: it has %1 nodes, and the most is %2.")
                  .arg(nodes)
                  .arg(SmootherNodeLimit));
}

void SmootherPanel::btnTSmoother_Click() {
    ApplyTrackTool(SmoothTrackNodes);
    Prepare();
}

} // namespace railwright
