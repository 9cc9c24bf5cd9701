#include "shell/panels/mNLT_Overview.h"

#include "shell/Controls.h"
#include "shell/ucFrame.h"

#include <utility>

#include <QPlainTextEdit>

namespace railwright {

OverviewPanel::OverviewPanel(ucFrame& panel) : frame(panel) {}

void OverviewPanel::MakeBox() {
    txtOverview = Placed(new QPlainTextEdit(&frame), "txtOverview", {60, 60, 7455, 6015});
    txtOverview->setAccessibleName("Overview");
    txtOverview->setFont(ReportFont());
    txtOverview->setReadOnly(true);
    txtOverview->setTabChangesFocus(true);
    txtOverview->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    txtOverview->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    QPalette colours = txtOverview->palette();
    colours.setBrush(QPalette::Base, colours.button());
    colours.setBrush(QPalette::Text, colours.buttonText());
    txtOverview->setPalette(colours);
    txtOverview->show();
}

void OverviewPanel::ShowReport(std::string report) {
    pending = std::move(report);
    if (!frame.isHidden())
        Prepare();
    else if (txtOverview != nullptr)
        txtOverview->clear();
}

void OverviewPanel::Prepare() {
    if (txtOverview == nullptr)
        MakeBox();
    if (pending)
        txtOverview->setPlainText(QString::fromStdString(*pending));
    pending.reset();
}

} // namespace railwright
