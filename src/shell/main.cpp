#include "platform/CommandLine.h"
#include "platform/UserTextSize.h"
#include "shell/Accessibility.h"
#include "shell/ControlStyle.h"
#include "shell/frmMain.h"
#include "shell/mMain.h"

#include <QApplication>

namespace {

/// The toolkit's variable for the scale of the user interface, which the user may have set.
constexpr auto* Scale = "QT_SCALE_FACTOR";

/// Enlarges the whole window for users who want larger texts. Control positions are fixed, so they are scaled
/// too.
/// @return whether the variable was set. It must not be inherited by other programs.
bool FollowTextSize() {
    const QSize size = railwright::frmMain::ClientSize();
    const double scale = railwright::UserTextScale(size.width(), size.height());
    return scale > 1 && !qEnvironmentVariableIsSet(Scale) && qputenv(Scale, QByteArray::number(scale));
}

} // namespace

int main(int argc, char** argv) {
    // The toolkit gets only the program's name. The rest is a file name, even if it looks like an option.
    int count = 1;
    const bool isScaled = FollowTextSize();
    QApplication application(count, argv);
    if (isScaled)
        qunsetenv(Scale);
    // Desktops use the icon and the name of the desktop entry with this name.
    QApplication::setDesktopFileName("railwright");
    QApplication::setStyle(new railwright::ControlStyle);
    // Closing a message box at the start must not end the program.
    // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks): the application owns the style.
    QApplication::setQuitOnLastWindowClosed(false);
    railwright::DescribeOwnControls();
    railwright::frmMain window;
    window.Form_Load(railwright::CommandLineText(argc, argv));
    window.show();
    railwright::ShowInterruptedSaves();
    QApplication::setQuitOnLastWindowClosed(true);
    return QApplication::exec();
}
