#include "shell/Accessibility.h"

#include "shell/Controls.h"
#include "shell/QtPictureBox.h"
#include "shell/ucFrame.h"

#include <QAccessibleWidget>

namespace railwright {
namespace {

QAccessibleInterface* Describe(const QString& /*className*/, QObject* object) {
    auto* const widget = qobject_cast<QWidget*>(object);
    if (dynamic_cast<ucFrame*>(object) != nullptr)
        return new QAccessibleWidget(widget, QAccessible::Grouping);
    if (dynamic_cast<Picture*>(object) != nullptr || dynamic_cast<QtPictureBox*>(object) != nullptr)
        return new QAccessibleWidget(widget, QAccessible::Graphic);
    return nullptr;
}

} // namespace

void DescribeOwnControls() {
    QAccessible::installFactory(Describe);
}

} // namespace railwright
