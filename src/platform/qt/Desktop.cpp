#include "platform/Desktop.h"

#include <algorithm>
#include <cstdlib>

#include <QGuiApplication>
#include <QLabel>
#include <QMessageBox>

namespace railwright {
namespace {

QMessageBox::StandardButtons ButtonsOf(MessageButtons buttons) {
    switch (buttons) {
    case MessageButtons::YesNo:
        return QMessageBox::Yes | QMessageBox::No;
    case MessageButtons::YesNoCancel:
        return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case MessageButtons::Ok:
        break;
    }
    return QMessageBox::Ok;
}

QMessageBox::Icon IconOf(MessageIcon icon) {
    switch (icon) {
    case MessageIcon::Question:
        return QMessageBox::Question;
    case MessageIcon::Information:
        return QMessageBox::Information;
    case MessageIcon::Exclamation:
        break;
    }
    return QMessageBox::Warning;
}

} // namespace

MessageAnswer ShowMessageBox(WindowHandle owner, const std::string& text, const std::string& title,
                             MessageButtons buttons, MessageIcon icon, const std::string& details) {
    QMessageBox box(QWidget::find(static_cast<WId>(owner)));
    box.setWindowTitle(QString::fromStdString(title));
    box.setTextFormat(Qt::PlainText);
    box.setText(QString::fromStdString(text).remove('\r'));
    box.setInformativeText(QString::fromStdString(details).remove('\r'));
    box.setStandardButtons(ButtonsOf(buttons));
    box.setIcon(IconOf(icon));
    // Without a minimum width, the box would wrap lines on a small screen.
    constexpr int widest = 600;           // pixels
    constexpr int leastWithDetails = 330; // pixels
    if (auto* const label = box.findChild<QLabel*>("qt_msgbox_label"))
        label->setMinimumWidth(
            std::max(std::min(label->sizeHint().width(), widest), details.empty() ? 0 : leastWithDetails));
    switch (box.exec()) {
    case QMessageBox::Yes:
        return MessageAnswer::Yes;
    case QMessageBox::No:
        return MessageAnswer::No;
    case QMessageBox::Cancel:
        return MessageAnswer::Cancel;
    default:
        return MessageAnswer::Ok;
    }
}

FilePath ProgramFolder() {
    return FilePath::FromUser(QCoreApplication::applicationDirPath().toStdString());
}

WaitPointer::WaitPointer() {
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
}

WaitPointer::~WaitPointer() {
    QGuiApplication::restoreOverrideCursor();
}

void RunPendingEvents() {
    QCoreApplication::processEvents();
}

void EndProcess() {
    std::_Exit(EXIT_SUCCESS);
}

} // namespace railwright
