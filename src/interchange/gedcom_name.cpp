#include "gedcom_name.h"

namespace lineara {

QString plainName(const QString& value)
{
    QString name = value;
    const auto open = name.indexOf(u'/');
    const auto close = name.lastIndexOf(u'/');
    if (open >= 0)
        name[open] = u' ';
    if (close > open)
        name[close] = u' ';
    return name.simplified();
}

} // namespace lineara
