#include "shell/panels/mTool_EnvironmentCleaner.h"

#include "shell/Controls.h"
#include "shell/ucFrame.h"

#include <QLabel>

namespace railwright {

EnvironmentOrganizerPanel::EnvironmentOrganizerPanel(ucFrame& frame) {
    QLabel* const total = AddLabel(frame, "Label11", "Total Environments:", {60, 60, 2055, 195});
    QLabel* const toDo = AddLabel(frame, "Label12", "UnOrganized Environments:", {60, 300, 2055, 195});
    for (QLabel* const label : {total, toDo})
        label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    const QFont bold = ControlFont(8.25, true);
    lblNLEnvOrganize[0] = AddLabel(frame, "lblNLEnvOrganize(0)", "", {2160, 60, 1155, 195}, bold);
    lblNLEnvOrganize[1] = AddLabel(frame, "lblNLEnvOrganize(1)", "", {2160, 300, 1155, 195}, bold);
    btnNLEnvOrganize = AddButton(frame, "btnNLEnvOrganize", "Organize Environments", {5160, 240, 2355, 315});
    pbNLEnvOrganize = Placed(new QWidget(&frame), "pbNLEnvOrganize", {60, 600, 7455, 195});
    pbNLEnvOrganize->setAutoFillBackground(true);
    pbNLEnvOrganize->setBackgroundRole(QPalette::Mid);
}

} // namespace railwright
