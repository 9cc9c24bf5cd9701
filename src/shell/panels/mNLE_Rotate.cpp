#include "shell/panels/mNLE_Rotate.h"

#include "shell/AngleBar.h"
#include "shell/Controls.h"
#include "shell/mMain.h"
#include "shell/ucFrame.h"
#include "tools/mNLE_Rotate.h"

#include <array>

#include <QLabel>

namespace railwright {
namespace {

constexpr const char* HelpText =
    "    When rotating an element it can get \"out-of-whack\" from what the Editor expects.  As "
    "a rule, the element should always start heading north (towards the top of the screen in the "
    "left-side preview).  If your element does not start by heading in a north direction, you "
    "should use the \"Rotate Y-axis\" button to rotate the element around until the start of the "
    "element heads in a north direction.";

} // namespace

ElementRotatePanel::ElementRotatePanel(ucFrame& frame) {
    AddLabel(frame, "Label10", "Rotate:", {180, 3660, 615, 195});
    lblERotate = AddLabel(frame, "lblERotate", "0 degrees.", {840, 3660, 2280, 195});
    hsERotate = new AngleBar(frame, "hsERotate", "Rotate:", {180, 3915, 7215, 255});
    constexpr std::array captions = {"Rotate X-axis", "Rotate Z-axis", "Rotate Y-axis"};
    for (int index = 0; const char* caption : captions) {
        QPushButton* const button =
            AddButton(frame, Indexed("btnERotate", index), caption, {180 + index * 1875, 4335, 1755, 375});
        QObject::connect(button, &QPushButton::clicked, button, [this, index] { btnERotate_Click(index); });
        ++index;
    }
    AddHelpText(frame, "Label13", HelpText, {180, 4890, 7215, 1125});
    QObject::connect(hsERotate, &QScrollBar::valueChanged, hsERotate, [this] { hsERotate_Change(); });
}

void ElementRotatePanel::hsERotate_Change() {
    lblERotate->setText(hsERotate->Caption());
}

void ElementRotatePanel::btnERotate_Click(int Index) {
    ApplyElementTool([&] { RotateElement(Index, hsERotate->Degrees()); });
}

} // namespace railwright
