#ifndef EMPTY_WINDOW
#include "platform/CommandLine.h"
#include "shell/ControlStyle.h"
#include "shell/frmMain.h"
#endif

#include <QApplication>
#include <QMainWindow>
#include <QPaintEvent>
#include <QTimer>

namespace {

/// Ends the program once a widget was painted.
class EndOnPaint final : public QObject {
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() == QEvent::Paint)
            QTimer::singleShot(0, qApp, &QApplication::quit);
        return false;
    }
};

} // namespace

/// Shows the program's window with the file that is named, or an empty window of the same size.
int main(int argc, char** argv) {
    QApplication application(argc, argv);
#ifdef EMPTY_WINDOW
    QMainWindow window;
    window.setFixedSize(633, 466);
#else
    QApplication::setStyle(new railwright::ControlStyle);
    railwright::frmMain window;
    window.Form_Load(argv[1]);
#endif
    EndOnPaint end;
    window.installEventFilter(&end);
    window.show();
    return QApplication::exec();
}
