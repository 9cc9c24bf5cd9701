#include "platform/CommandLine.h"
#include "shell/Accessibility.h"
#include "shell/ControlStyle.h"
#include "shell/frmMain.h"

#include <QApplication>

int main(int argc, char** argv) {
    // The toolkit sees the program's name only: the rest is the name of a file, whatever it looks like.
    int count = 1;
    QApplication application(count, argv);
    // Desktops take the window's icon and name from the desktop entry of that name.
    QApplication::setDesktopFileName("railwright");
    QApplication::setStyle(new railwright::ControlStyle);
    // A question at the start is no last window.
    // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks): the application has taken the style over.
    QApplication::setQuitOnLastWindowClosed(false);
    railwright::DescribeOwnControls();
    railwright::frmMain window;
    window.Form_Load(railwright::CommandLineText(argc, argv));
    window.show();
    QApplication::setQuitOnLastWindowClosed(true);
    return QApplication::exec();
}
