#include "archive_names.h"

#include "media_files.h"

#include <QRegularExpression>
#include <QUrl>

#include <algorithm>

namespace lineara {
namespace {

constexpr qsizetype longestPlace = 1000;

/// Whether a file of an archive may be called so.
bool isUsable(const QString& place)
{
    const bool isPrintable = std::ranges::all_of(place, [](QChar c) { return c.isPrint() || c.isSurrogate(); });
    return isPrintable && place.size() <= longestPlace &&
           place.compare(QStringLiteral("gedcom.ged"), Qt::CaseInsensitive) != 0;
}

} // namespace

std::optional<QString> plainPlace(const QString& file)
{
    const auto place = nearestPlace(file);
    const bool isAddress = std::ranges::none_of(file, [](QChar c) { return QStringView(u":\\?#").contains(c); });
    QString name = decodedAddress(file);
    if (name.startsWith(QStringLiteral("./")))
        name.remove(0, 2);
    return place && isAddress && name == *place ? place : std::nullopt;
}

std::optional<QString> nearestPlace(const QString& file)
{
    const QStringList places = placesInArchive(file);
    return !places.isEmpty() && isUsable(places.front()) ? std::optional(places.front()) : std::nullopt;
}

QString addressOfPlace(const QString& place)
{
    return QString::fromLatin1(QUrl::toPercentEncoding(place, "/"));
}

QString madePlace(std::uint64_t number, qsizetype attempt, const QString& ending)
{
    return QStringLiteral("pictures/%1p%2.%3").arg(QString(attempt, u'x')).arg(number).arg(ending);
}

bool isMadePlace(const QString& place)
{
    static const QRegularExpression made(
        QRegularExpression::anchoredPattern(QStringLiteral("pictures/x*p[0-9]+\\.[a-z]+")));
    return made.match(place).hasMatch();
}

} // namespace lineara
