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
using kinship::Sex;

QString yearWords(std::int32_t year)
{
    return year < 0 ? FindingWords::tr("%1 BC").arg(-std::int64_t{year}) : QString::number(year);
}

bool isMonth(const PartialDate& date)
{
    return date.month && *date.month >= 1 && *date.month <= kinship::monthsOfYear;
}

/// What fits the sex of the one that is told of.
const QString& fitting(Sex sex, const QString& unknown, const QString& female, const QString& male)
{
    return sex == Sex::Female ? female : sex == Sex::Male ? male : unknown;
}

/// Of findings about a parent or a sibling: a sentence about the birth (%1), that relative (%2) and its own date (%3).
QString patternOf(Finding finding, Sex sexOfOther)
{
    switch (finding) {
    case Finding::BornBeforeParent:
        return fitting(sexOfOther, FindingWords::tr("Born %1, before the parent %2 (born %3)"),
                       FindingWords::tr("Born %1, before the mother %2 (born %3)"),
                       FindingWords::tr("Born %1, before the father %2 (born %3)"));
    case Finding::ParentTooYoung:
        return fitting(sexOfOther, FindingWords::tr("Born %1, when the parent %2 (born %3) was under 12"),
                       FindingWords::tr("Born %1, when the mother %2 (born %3) was under 12"),
                       FindingWords::tr("Born %1, when the father %2 (born %3) was under 12"));
    case Finding::ParentTooOld:
        return fitting(sexOfOther, FindingWords::tr("Born %1, when the parent %2 (born %3) was over 80"),
                       FindingWords::tr("Born %1, when the mother %2 (born %3) was over 80"),
                       FindingWords::tr("Born %1, when the father %2 (born %3) was over 80"));
    case Finding::BornAfterParentsDeath:
        return fitting(sexOfOther,
                       FindingWords::tr("Born %1, more than ten months after the death of the parent %2 (died %3)"),
                       FindingWords::tr("Born %1, after the death of the mother %2 (died %3)"),
                       FindingWords::tr("Born %1, more than ten months after the death of the father %2 (died %3)"));
    default:
        return fitting(sexOfOther, FindingWords::tr("Born %1, less than nine months after the sibling %2 (born %3)"),
                       FindingWords::tr("Born %1, less than nine months after the sister %2 (born %3)"),
                       FindingWords::tr("Born %1, less than nine months after the brother %2 (born %3)"));
    }
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

QString findingWords(const kinship::FoundPerson& found, const kinship::CheckedFamily& family, const QString& other)
{
    const kinship::LifeDates& own = family.dates[found.person];
    const QString born = dateWords(own.birth);
    if (found.finding == Finding::BornAfterDeath)
        return FindingWords::tr("Born %1, died %2: born after the death").arg(born, dateWords(own.death));
    if (found.finding == Finding::TooOld)
        return FindingWords::tr("Born %1, died %2: over 120 years old").arg(born, dateWords(own.death));
    const kinship::LifeDates& ofOther = family.dates[*found.other];
    const bool isAboutDeath = found.finding == Finding::BornAfterParentsDeath;
    return patternOf(found.finding, kinship::sexOf(family.sexes, *found.other))
        .arg(born, other, dateWords(isAboutDeath ? ofOther.death : ofOther.birth));
}

} // namespace lineara
