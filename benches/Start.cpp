#include <cstdlib>

#include <QApplication>
#include <QEvent>
#include <QLabel>
#include <QMainWindow>
#include <QTimer>

#if !defined(EMPTY_WINDOW) && !defined(LINE_OF_TEXT)
#define WHOLE_WINDOW
#include "shell/ControlStyle.h"
#include "shell/frmMain.h"
#endif

/// Ends the process once a window was painted: what comes behind that is no part of the start.
struct EndOnPaint final : QObject {
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() == QEvent::Paint)
            QTimer::singleShot(0, [] { std::_Exit(EXIT_SUCCESS); });
        return false;
    }
};

/// Shows the program's window with the file that is named, or a window of about its size that is empty or
/// shows one line of text.
int main(int argc, char** argv) {
    QApplication application(argc, argv);
#ifdef WHOLE_WINDOW
    QApplication::setStyle(new railwright::ControlStyle);
    railwright::frmMain window;
    window.Form_Load(argv[1]);
#else
    QMainWindow window;
    window.setFixedSize(633, 467);
#endif
#ifdef LINE_OF_TEXT
    window.setCentralWidget(new QLabel("Railwright"));
#endif
    EndOnPaint end;
    window.installEventFilter(&end);
    window.show();
    return QApplication::exec();
}
