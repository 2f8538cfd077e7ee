#include "gedcom_name.h"

#include <QStringBuilder>

namespace lineara {

QString plainName(const QString& value, const QString& nickname)
{
    QString name = value;
    const auto open = name.indexOf(u'/');
    const auto close = name.lastIndexOf(u'/');
    if (close > open)
        name[close] = u' ';
    if (open >= 0)
        name[open] = u' ';
    const QString nick = nickname.simplified();
    if (!nick.isEmpty() && !name.simplified().contains(nick))
        name.insert(open >= 0 ? open : name.size(), QString(u" \"" % nick % u"\" "));
    return name.simplified();
}

} // namespace lineara
