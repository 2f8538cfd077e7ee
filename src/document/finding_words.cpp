#include "finding_words.h"

#include <QCoreApplication>
#include <QLocale>

namespace lineara {

namespace {

struct FindingWords
{
    Q_DECLARE_TR_FUNCTIONS(FindingWords)
};

using kinship::Finding;
using kinship::PartialDate;

QString yearWords(std::int32_t year)
{
    return year < 0 ? FindingWords::tr("%1 BC").arg(-std::int64_t{year}) : QString::number(year);
}

bool isMonth(const PartialDate& date)
{
    return date.month && *date.month >= 1 && *date.month <= kinship::monthsOfYear;
}

} // namespace

QString dateWords(const PartialDate& date)
{
    if (!date.year)
        return {};
    QString year = yearWords(*date.year);
    if (!isMonth(date))
        return year;
    if (!date.day)
        return QLocale().standaloneMonthName(*date.month) + u' ' + year;
    return FindingWords::tr("%1 %2 %3", "day, month and year")
        .arg(QString::number(*date.day), QLocale().monthName(*date.month), year);
}

QString findingWords(const kinship::FoundPerson& found, std::span<const kinship::LifeDates> dates, const QString& other)
{
    const kinship::LifeDates& own = dates[found.person];
    const QString born = dateWords(own.birth);
    const kinship::LifeDates ofOther = found.other ? dates[*found.other] : kinship::LifeDates();
    const QString otherBorn = dateWords(ofOther.birth);
    switch (found.finding) {
    case Finding::BornAfterDeath:
        return FindingWords::tr("Born %1, died %2: born after the death").arg(born, dateWords(own.death));
    case Finding::TooOld:
        return FindingWords::tr("Born %1, died %2: over 120 years old").arg(born, dateWords(own.death));
    case Finding::BornBeforeParent:
        return FindingWords::tr("Born %1, before the parent %2 (born %3)").arg(born, other, otherBorn);
    case Finding::ParentTooYoung:
        return FindingWords::tr("Born %1, when the parent %2 (born %3) was under 12").arg(born, other, otherBorn);
    case Finding::ParentTooOld:
        return FindingWords::tr("Born %1, when the parent %2 (born %3) was over 80").arg(born, other, otherBorn);
    case Finding::BornAfterParentsDeath:
        return FindingWords::tr("Born %1, more than a year after the death of the parent %2 (died %3)")
            .arg(born, other, dateWords(ofOther.death));
    case Finding::BornTooSoonAfterSibling:
        return FindingWords::tr("Born %1, less than nine months after the sibling %2 (born %3)")
            .arg(born, other, otherBorn);
    }
    return {};
}

} // namespace lineara
