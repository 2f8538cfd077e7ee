#include "seen_parts.h"

#include <QLocale>
#include <QSettings>
#include <QStringList>

#include <algorithm>
#include <array>
#include <cmath>

namespace lineara {

namespace {

// One text for each family, the one that was seen last in front: UUID, person, right, up, zoom.
const QString settingsKey = QStringLiteral("seenParts");
constexpr int words = 5;

QString textOf(const QUuid& family, const SeenPart& part)
{
    const auto number = [](double value) { return QString::number(value, 'g', QLocale::FloatingPointShortest); };
    return QStringList{family.toString(QUuid::WithoutBraces), QString::number(part.person.number), number(part.right),
                       number(part.up), number(part.zoom)}
        .join(QLatin1Char(' '));
}

std::optional<SeenPart> partOf(const QString& text)
{
    const QStringList word = text.split(QLatin1Char(' '));
    if (word.size() != words)
        return std::nullopt;
    std::array<bool, 4> isNumber{};
    const SeenPart part{{word[1].toULongLong(&isNumber[0])},
                        word[2].toDouble(&isNumber[1]),
                        word[3].toDouble(&isNumber[2]),
                        word[4].toDouble(&isNumber[3])};
    const bool isSound = std::ranges::all_of(isNumber, [](bool sound) { return sound; }) && part.zoom > 0;
    const bool isFinite = std::isfinite(part.right) && std::isfinite(part.up) && std::isfinite(part.zoom);
    return isSound && isFinite ? std::optional(part) : std::nullopt;
}

bool isAbout(const QString& text, const QUuid& family)
{
    return text.startsWith(family.toString(QUuid::WithoutBraces) + QLatin1Char(' '));
}

} // namespace

void SeenParts::keep(const QUuid& family, const SeenPart& part)
{
    QSettings settings;
    QStringList kept = settings.value(settingsKey).toStringList();
    kept.removeIf([&](const QString& text) { return isAbout(text, family); });
    kept.prepend(textOf(family, part));
    settings.setValue(settingsKey, kept.mid(0, mostFamilies));
}

std::optional<SeenPart> SeenParts::of(const QUuid& family)
{
    const QStringList kept = QSettings().value(settingsKey).toStringList();
    const auto found = std::ranges::find_if(kept, [&](const QString& text) { return isAbout(text, family); });
    return found == kept.end() ? std::nullopt : partOf(*found);
}

} // namespace lineara
