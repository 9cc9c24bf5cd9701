#include "tests/shell/ShownWidget.h"

#include <algorithm>

#include <QAbstractButton>
#include <QApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

namespace railwright::testing {
namespace {

QString PlainCaption(const QAbstractButton& button) {
    return button.text().remove('&');
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
    constexpr int widest = 500;
    if (const auto* const label = box->findChild<QLabel*>("qt_msgbox_label");
        label->width() < std::min(widest, label->fontMetrics().size(0, box->text()).width()))
        return "a text that is wrapped";
    static const QStringList icons = {"None", "Information", "Warning", "Critical", "Question"};
    QStringList buttons;
    for (const auto button : {QMessageBox::Ok, QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel})
        if (const QAbstractButton* const there = box->button(button))
            buttons += PlainCaption(*there);
    const QString details = box->informativeText();
    const QString text = details.isEmpty() ? box->text() : box->text() + '\n' + details;
    return QStringList{box->windowTitle(), text, icons[box->icon()], buttons.join(',')}.join('|');
}

// An answer may open the next box before it returns, and a timer does not fire within its own handler. So
// answers are posted.

void ShownWidget::Press(const QString& button) {
    QTimer::singleShot(0, &widget, [&box = widget, button] {
        for (QAbstractButton* const each : box.findChildren<QAbstractButton*>())
            if (PlainCaption(*each) == button)
                QTest::mouseClick(each, Qt::LeftButton);
    });
}

void ShownWidget::Name(const QString& name, QString* before) {
    QTimer::singleShot(0, &widget, [&dialog = widget, name, before] {
        auto* const field = dialog.findChild<QLineEdit*>("fileNameEdit");
        if (before != nullptr)
            *before = field->text();
        // Typing would open the completion list, which takes the next keys.
        field->setText(name);
        for (auto* const button : dialog.findChild<QDialogButtonBox*>()->buttons())
            if ((PlainCaption(*button) == "Cancel") == name.isEmpty())
                QTest::mouseClick(button, Qt::LeftButton);
    });
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
