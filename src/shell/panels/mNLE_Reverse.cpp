#include "shell/panels/mNLE_Reverse.h"

#include "shell/Controls.h"
#include "shell/mMain.h"
#include "shell/ucFrame.h"
#include "tools/mNLE_Reverse.h"

namespace railwright {

ElementReversePanel::ElementReversePanel(ucFrame& frame) {
    QPushButton* const button = AddButton(frame, "btnEReverse", "Reverse", {180, 3660, 1455, 375});
    QObject::connect(button, &QPushButton::clicked, button, [this] { btnEReverse_Click(); });
}

void ElementReversePanel::btnEReverse_Click() {
    ApplyElementTool(ReverseElement);
}

} // namespace railwright
