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

/// Ends the process after a window was painted for the first time.
struct EndOnPaint final : QObject {
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() == QEvent::Paint)
            QTimer::singleShot(0, [] { std::_Exit(EXIT_SUCCESS); });
        return false;
    }
};

/// Shows the program's window with a file, or a window of similar size that is empty or shows a line of text.
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
