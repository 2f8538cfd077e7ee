#include "gedcom_name.h"

#include <QStringBuilder>

#include <algorithm>
#include <functional>
#include <string_view>

namespace lineara {

namespace {

/// In linear time, however long both are and however much they look alike.
bool holds(const QString& text, const QString& part)
{
    const std::u16string_view letters(QStringView(text).utf16(), static_cast<std::size_t>(text.size()));
    const std::u16string_view wanted(QStringView(part).utf16(), static_cast<std::size_t>(part.size()));
    return std::search(letters.begin(), letters.end(), std::boyer_moore_searcher(wanted.begin(), wanted.end())) !=
           letters.end();
}

} // namespace

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
    if (!nick.isEmpty() && !holds(name.simplified(), nick))
        name.insert(open >= 0 ? open : name.size(), QString(u" \"" % nick % u"\" "));
    return name.simplified();
}

} // namespace lineara
