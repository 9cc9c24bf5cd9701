#include <QApplication>
#include <QEvent>
#include <QMainWindow>
#include <QTimer>

#ifndef EMPTY_WINDOW
#include "shell/ControlStyle.h"
#include "shell/frmMain.h"
#endif

/// Ends the program once a window was painted.
struct EndOnPaint final : QObject {
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() == QEvent::Paint)
            QTimer::singleShot(0, qApp, &QApplication::quit);
        return false;
    }
};

/// Shows the program's window with the file that is named, or an empty window of about its size.
int main(int argc, char** argv) {
    QApplication application(argc, argv);
#ifdef EMPTY_WINDOW
    QMainWindow window;
    window.setFixedSize(633, 467);
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
