#include "platform/CommandLine.h"
#include "platform/UserTextSize.h"
#include "shell/Accessibility.h"
#include "shell/ControlStyle.h"
#include "shell/frmMain.h"
#include "shell/mMain.h"

#include <QApplication>

namespace {

/// The toolkit's setting for how large everything is, which the user may have made.
constexpr auto* Scale = "QT_SCALE_FACTOR";

/// Makes the whole window larger where the user wants larger texts: its places are fixed, so they grow too.
/// @return whether the setting was made, which no other program should see.
bool FollowTextSize() {
    const QSize size = railwright::frmMain::ClientSize();
    const double scale = railwright::UserTextScale(size.width(), size.height());
    return scale > 1 && !qEnvironmentVariableIsSet(Scale) && qputenv(Scale, QByteArray::number(scale));
}

} // namespace

int main(int argc, char** argv) {
    // The toolkit sees the program's name only: the rest is the name of a file, whatever it looks like.
    int count = 1;
    const bool isScaled = FollowTextSize();
    QApplication application(count, argv);
    if (isScaled)
        qunsetenv(Scale);
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
    railwright::ShowInterruptedSaves();
    QApplication::setQuitOnLastWindowClosed(true);
    return QApplication::exec();
}
