#include "ApplicationIdentity.h"

#include <QApplication>
#include <QIcon>

namespace ApplicationIdentity {

QString DesktopFileName()
{
    return QStringLiteral(BRINDLE_APP_ID);
}

void Apply()
{
    QApplication::setApplicationName(QStringLiteral("Brindle"));
    QApplication::setApplicationVersion(QStringLiteral(BRINDLE_VERSION));
    QApplication::setDesktopFileName(DesktopFileName());
    // The installed theme icon when there is one (it follows the desktop's
    // icon theme), else the same picture from the program's resources.
    QApplication::setWindowIcon(
        QIcon::fromTheme(DesktopFileName(), QIcon(QStringLiteral(":/images/brindle.svg"))));
}

} // namespace ApplicationIdentity
