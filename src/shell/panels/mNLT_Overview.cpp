#include "shell/panels/mNLT_Overview.h"

#include "platform/UserLocale.h"
#include "shell/Controls.h"
#include "shell/mMain.h"
#include "shell/ucFrame.h"
#include "tools/mNLT_Overview.h"

#include <QPlainTextEdit>

namespace railwright {
namespace {

/// A text box that shows the keyboard focus in its frame.
class ReportBox final : public QPlainTextEdit {
public:
    explicit ReportBox(QWidget* parent) : QPlainTextEdit(parent) {
        constexpr int markWidth = 2;
        setViewportMargins(markWidth, markWidth, markWidth, markWidth);
    }

protected:
    bool event(QEvent* event) override {
        const bool done = QPlainTextEdit::event(event);
        if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
            update();
        if (event->type() == QEvent::Paint)
            DrawFocus(*this);
        return done;
    }
};

} // namespace

OverviewPanel::OverviewPanel(ucFrame& panel) : frame(panel) {}

void OverviewPanel::MakeBox() {
    txtOverview = Placed(new ReportBox(&frame), "txtOverview", {60, 60, 7455, 6015});
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

void OverviewPanel::Refresh(const TrackMeasures& measures) {
    pending = BuildTrackOverview(sDocumentFile, UserNumberSeparators(), measures);
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
