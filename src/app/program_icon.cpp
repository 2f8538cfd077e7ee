#include "program_icon.h"

#include <QSize>
#include <QString>

namespace lineara {

namespace {

/// From the program itself, as an icon of the desktop's theme is only there once the program is installed.
QIcon drawnInAllSizes(const QString& name)
{
    QIcon icon;
    for (const int size : {16, 22, 24, 32, 48, 64, 128, 256})
        icon.addFile(QStringLiteral(":/icons/%1/%2.png").arg(size).arg(name), QSize(size, size));
    return icon;
}

} // namespace

QIcon programIcon()
{
    return drawnInAllSizes(QStringLiteral("lineara"));
}

QIcon familyIcon()
{
    return drawnInAllSizes(QStringLiteral("application-x-lineara"));
}

} // namespace lineara
