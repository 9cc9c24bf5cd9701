#include "shell/panels/mTool_EnvironmentCleaner.h"

#include "install/mTool_EnvironmentCleaner.h"
#include "platform/Desktop.h"
#include "shell/Controls.h"
#include "shell/frmMain.h"
#include "shell/mMain.h"
#include "shell/ucFrame.h"

#include <QLabel>
#include <QPainter>
#include <QProgressBar>
#include <QPushButton>

namespace railwright {

/// The progress bar of a run, in percent. Keeps its state until the next run.
class EnvironmentOrganizerPanel::Bar final : public QProgressBar, public OrganizerProgress {
public:
    explicit Bar(QWidget* parent) : QProgressBar(parent) {
        setAccessibleName("Progress");
        setRange(0, 100);
        setValue(0);
    }

    void Clear() override { Fill(0, Qt::red); }
    void ShowShare(int percent) override { Fill(percent, Qt::red); }
    void ShowDone() override { Fill(100, Qt::green); }
    void RunPendingEvents() override { railwright::RunPendingEvents(); }
    void Tell(const std::string&) override {} // the window shows only the bar

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), palette().mid());
        painter.fillRect(QRectF(0, 0, width() * value() / 100.0, height()), colour);
    }

private:
    void Fill(int percent, Qt::GlobalColor with) {
        setValue(percent);
        colour = with;
        update();
    }

    QColor colour = Qt::red;
};

EnvironmentOrganizerPanel::EnvironmentOrganizerPanel(ucFrame& frame) {
    QLabel* const total = AddLabel(frame, "Label11", "Total Environments:", {60, 60, 2055, 195});
    QLabel* const toDo = AddLabel(frame, "Label12", "UnOrganized Environments:", {60, 300, 2055, 195});
    for (QLabel* const label : {total, toDo})
        label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    const QFont bold = ControlFont(8.25, {.Bold = true});
    lblNLEnvOrganize[0] = AddLabel(frame, "lblNLEnvOrganize(0)", "", {2160, 60, 1155, 195}, bold);
    lblNLEnvOrganize[1] = AddLabel(frame, "lblNLEnvOrganize(1)", "", {2160, 300, 1155, 195}, bold);
    btnNLEnvOrganize = AddButton(frame, "btnNLEnvOrganize", "Organize Environments", {5160, 240, 2355, 315});
    QObject::connect(btnNLEnvOrganize, &QPushButton::clicked, [this] { btnNLEnvOrganize_Click(); });
    pbNLEnvOrganize = Placed(new Bar(&frame), "pbNLEnvOrganize", {60, 600, 7455, 195});
}

void EnvironmentOrganizerPanel::Prepare() {
    const EnvironmentScan scan = ScanEnvironments(sNoLimitsPath);
    lblNLEnvOrganize[0]->setText(QString::number(scan.EnvironmentList.size()));
    lblNLEnvOrganize[1]->setText(QString::number(scan.Unorganized));
    btnNLEnvOrganize->setEnabled(scan.Unorganized >= 1);
}

void EnvironmentOrganizerPanel::btnNLEnvOrganize_Click() {
    OrganizeEnvironments(sNoLimitsPath, *pbNLEnvOrganize);
    frmMain::Instance().ShowTab(Tabs::EnvironmentOrganizer);
}

} // namespace railwright
