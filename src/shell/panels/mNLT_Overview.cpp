#include "shell/panels/mNLT_Overview.h"

#include "shell/Controls.h"
#include "shell/ucFrame.h"

#include <QPlainTextEdit>

namespace railwright {

OverviewPanel::OverviewPanel(ucFrame& frame)
    : txtOverview(Placed(new QPlainTextEdit(&frame), "txtOverview", {60, 60, 7455, 6015})) {
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
}

void OverviewPanel::ShowReport(const std::string& report) {
    txtOverview->setPlainText(QString::fromStdString(report));
}

} // namespace railwright
