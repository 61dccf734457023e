#include "PimLibrary.h"

#include <QDir>
#include <QStandardPaths>

namespace PimLibrary {

namespace {
QString g_root;
}

bool Initialize()
{
    QString root = qEnvironmentVariable("BRINDLE_PIM_DIR");
    if (root.isEmpty())
        root = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + QStringLiteral("/pim");
    if (!QDir().mkpath(root))
        return false;
    g_root = QDir::cleanPath(root);
    return true;
}

void Release()
{
    g_root.clear();
}

bool IsInitialized()
{
    return !g_root.isEmpty();
}

QString RootFolder()
{
    return g_root;
}

} // namespace PimLibrary
