#include "shell/panels/mNLT_Move.h"

#include "base/NumberFormat.h"
#include "platform/UserLocale.h"
#include "shell/Controls.h"
#include "shell/mMain.h"
#include "shell/ucFrame.h"
#include "tools/mNLT_Move.h"

#include <array>

#include <QCheckBox>
#include <QLabel>

namespace railwright {
namespace {

/// A button and its direction, as a vector of one metre.
struct Direction {
    const char* Caption;
    Vector3 Metre;
    int Left, Top;
};

// A compass rose, with up and down next to it.
constexpr std::array Directions = {
    Direction{"N", {0, 0, -1}, 5520, 3660}, Direction{"S", {0, 0, 1}, 5520, 4500},
    Direction{"E", {1, 0, 0}, 5940, 4080},  Direction{"W", {-1, 0, 0}, 5100, 4080},
    Direction{"U", {0, 1, 0}, 6900, 3660},  Direction{"D", {0, -1, 0}, 6900, 4500},
};

constexpr float StepsPerMetre = 100;

} // namespace

MovePanel::MovePanel(ucFrame& frame) {
    AddLabel(frame, "Label5", "Distance to Move:", {180, 3660, 1455, 195});
    lblTMove = AddLabel(frame, "lblTMove", "5.00 meters.", {1680, 3660, 2760, 195});
    hsTMove =
        new ScrollBar(frame, "hsTMove", "Distance to Move:", {180, 3915, 4260, 255}, {0, 1000, 10, 1, 500});
    chkTMove =
        AddCheckBox(frame, "chkTMove", "Move Supports and Nodes with Track", {180, 4335, 4260, 195}, true);
    for (std::size_t index = 0; index < Directions.size(); ++index) {
        const Direction& direction = Directions[index];
        QPushButton* const button = AddButton(frame, Indexed("btnTMove", static_cast<int>(index)),
                                              direction.Caption, {direction.Left, direction.Top, 375, 375});
        QObject::connect(button, &QPushButton::clicked, button, [this, index] { btnTMove_Click(index); });
    }
    QObject::connect(hsTMove, &QScrollBar::valueChanged, hsTMove, [this] { hsTMove_Change(); });
    hsTMove_Change();
}

void MovePanel::hsTMove_Change() {
    const std::string metres =
        FormatNumber(static_cast<double>(hsTMove->value()) / StepsPerMetre, "#0.00", UserNumberSeparators());
    lblTMove->setText(QString::fromStdString(metres + " meters."));
}

void MovePanel::btnTMove_Click(std::size_t Index) {
    const float distance = static_cast<float>(hsTMove->value()) / StepsPerMetre;
    const Vector3& metre = Directions[Index].Metre;
    const Vector3 offset = {metre.X * distance, metre.Y * distance, metre.Z * distance};
    const bool supports = chkTMove->isChecked();
    ApplyTrackTool([&] { MoveTrack(offset, supports); });
}

} // namespace railwright
