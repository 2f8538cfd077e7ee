#include "gedcom_name.h"

#include <QStringBuilder>

#include <algorithm>
#include <functional>
#include <string_view>

namespace lineara {
namespace {

/// Nicknames stand in quotation marks or brackets.
bool partsWords(QChar c)
{
    return c.isSpace() || QStringView(u"\"()\u201C\u201D\u201E\u00AB\u00BB,;").contains(c);
}

} // namespace

bool showsPiece(const QString& name, const QString& piece)
{
    const QString plain = piece.simplified();
    for (auto at = name.indexOf(plain); at >= 0; at = name.indexOf(plain, at + 1)) {
        const auto end = at + plain.size();
        if (plain.isEmpty() || ((at == 0 || partsWords(name[at - 1])) && (end == name.size() || partsWords(name[end]))))
            return true;
    }
    return false;
}

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
