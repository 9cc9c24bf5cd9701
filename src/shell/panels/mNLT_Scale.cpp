#include "shell/panels/mNLT_Scale.h"

#include "base/NumberFormat.h"
#include "platform/UserLocale.h"
#include "shell/Controls.h"
#include "shell/mMain.h"
#include "shell/ucFrame.h"
#include "tools/mNLT_Scale.h"

#include <QCheckBox>
#include <QLabel>

namespace railwright {
namespace {

constexpr int StepsPerWhole = 10000;

} // namespace

ScalePanel::ScalePanel(ucFrame& frame) {
    AddLabel(frame, "Label6", "Scale to:", {180, 3660, 795, 195});
    lblTScale = AddLabel(frame, "lblTScale", "100.00%", {1020, 3660, 2100, 195});
    hsTScale = new ScrollBar(frame, "hsTScale", "Scale to:", {180, 3915, 7215, 255},
                             {0, 2 * StepsPerWhole, 100, 1, StepsPerWhole});
    chkTScale =
        AddCheckBox(frame, "chkTScale", "Rescale Support Nodes with Track", {180, 4425, 4500, 195}, true);
    QPushButton* const button = AddButton(frame, "btnTScale", "Scale", {5940, 4335, 1455, 375});
    QObject::connect(hsTScale, &QScrollBar::valueChanged, hsTScale, [this] { hsTScale_Change(); });
    QObject::connect(button, &QPushButton::clicked, button, [this] { btnTScale_Click(); });
    hsTScale_Change();
}

void ScalePanel::hsTScale_Change() {
    const std::string percent = FormatNumber(static_cast<double>(hsTScale->value()) / StepsPerWhole * 100,
                                             "##0.00", UserNumberSeparators());
    lblTScale->setText(QString::fromStdString(percent + "%"));
}

void ScalePanel::btnTScale_Click() {
    const float factor = static_cast<float>(hsTScale->value()) / StepsPerWhole;
    const bool supports = chkTScale->isChecked();
    ApplyTrackTool([&] { ScaleTrack(factor, supports); });
}

} // namespace railwright
