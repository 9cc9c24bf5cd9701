#include "platform/Desktop.h"

#include <QDesktopServices>
#include <QUrl>

namespace railwright {

void OpenWebPage(WindowHandle, const std::string& address) {
    QDesktopServices::openUrl(QUrl(QString::fromStdString(address)));
}

} // namespace railwright
