#include "tests/shell/ShownWidget.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

namespace railwright::testing {
namespace {

QString PlainCaption(const QAbstractButton& button) {
    return button.text().remove('&');
}

/// The answer may bring up the next box before it returns, and a timer does not run within itself.
void ClickSoon(QAbstractButton* button) {
    QTimer::singleShot(0, button, [button] { QTest::mouseClick(button, Qt::LeftButton); });
}

} // namespace

std::unique_ptr<ShownBox> ShownWidget::InFront() {
    QWidget* const modal = QApplication::activeModalWidget();
    return modal == nullptr ? nullptr : std::make_unique<ShownWidget>(*modal);
}

int ShownWidget::CountLook() {
    constexpr const char* looks = "looks";
    const int before = widget.property(looks).toInt();
    widget.setProperty(looks, before + 1);
    return before;
}

QString ShownWidget::Seen() const {
    const auto* const box = qobject_cast<const QMessageBox*>(&widget);
    if (box == nullptr)
        return widget.windowTitle();
    static const QStringList icons = {"None", "Information", "Warning", "Critical", "Question"};
    QStringList buttons;
    for (const auto button : {QMessageBox::Ok, QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel})
        if (const QAbstractButton* const there = box->button(button))
            buttons += PlainCaption(*there);
    return QStringList{box->windowTitle(), box->text(), icons[box->icon()], buttons.join(',')}.join('|');
}

void ShownWidget::Press(const QString& button) {
    for (QAbstractButton* const each : widget.findChildren<QAbstractButton*>())
        if (PlainCaption(*each) == button)
            ClickSoon(each);
}

QString ShownWidget::Name(const QString& name) {
    auto* const field = widget.findChild<QLineEdit*>("fileNameEdit");
    const QString before = field->text();
    // Keys would bring up the list of completions, which takes the next of them.
    field->setText(name);
    for (auto* const button : widget.findChild<QDialogButtonBox*>()->buttons())
        if ((PlainCaption(*button) == "Cancel") == name.isEmpty())
            ClickSoon(button);
    return before;
}

void ShownWidget::GiveUp() {
    qobject_cast<QDialog*>(&widget)->reject();
}

#ifndef Q_OS_WIN

std::unique_ptr<ShownBox> ShownBox::InFront() {
    return ShownWidget::InFront();
}

QString OverwriteQuestion(const QString& title, const QString& name) {
    return title + '|' + name + " already exists.\nDo you want to replace it?|Warning|Yes,No";
}

#endif

} // namespace railwright::testing
