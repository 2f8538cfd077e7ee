#include "gedcom_date.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace lineara {
namespace {

/// "day.month.year reading", with - for what is absent.
std::string read(const char* value)
{
    const GedcomDate date = readGedcomDate(value);
    const auto shown = [](std::optional<std::int32_t> part) { return part ? std::to_string(*part) : "-"; };
    static constexpr const char* readings[] = {"whole", "part", "converted", "calendar", "nothing"};
    return shown(date.day) + "." + shown(date.month) + "." + shown(date.year) + " " +
           readings[static_cast<std::size_t>(date.reading)];
}

using Cases = std::vector<std::pair<const char*, const char*>>;

void expectAll(const Cases& cases)
{
    for (const auto& [value, expected] : cases)
        EXPECT_EQ(read(value), expected) << value;
}

TEST(GedcomDates, DayMonthAndYearAreReadSeparately)
{
    expectAll({{"5 MAR 1900", "5.3.1900 whole"},
               {"MAR 1900", "-.3.1900 whole"},
               {"1900", "-.-.1900 whole"},
               {" 2 APR  742", "2.4.742 whole"},
               {"10 JAN", "10.1.- whole"},
               {"40", "-.-.40 whole"},
               {"30 MAR 36", "30.3.36 whole"},
               {"5 mar 1900", "5.3.1900 whole"},
               {"5 March 1900", "5.3.1900 whole"},
               {"Sept. 1900", "-.9.1900 whole"},
               {"MAY 12, 1900", "12.5.1900 whole"}});
}

TEST(GedcomDates, EveryMonthHasItsNumber)
{
    const std::vector<const char*> months = {"JAN", "FEB", "MAR", "APR", "MAY", "JUN",
                                             "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};
    for (std::size_t i = 0; i < months.size(); ++i)
        EXPECT_EQ(read((std::string(months[i]) + " 1900").c_str()), "-." + std::to_string(i + 1) + ".1900 whole");
}

TEST(GedcomDates, QualifiersAreDroppedButTold)
{
    expectAll({{"ABT 1600", "-.-.1600 part"},
               {"BEF 8 JUL 1337", "8.7.1337 part"},
               {"AFT SEP 1558", "-.9.1558 part"},
               {"CAL 1600", "-.-.1600 part"},
               {"EST 1815", "-.-.1815 part"},
               {"abt. 1600", "-.-.1600 part"},
               {"INT 1700 (about seventeen hundred)", "-.-.1700 part"},
               {"TO 1750", "-.-.1750 part"}});
}

TEST(GedcomDates, RangesKeepTheirFirstYear)
{
    expectAll({{"BET 30 JAN 1727 AND 30 JAN 1728", "-.-.1727 part"},
               {"FROM 1700 TO 1750", "-.-.1700 part"},
               {"FROM MAR 1700", "-.-.1700 part"},
               {"BET 99 AND 100", "-.-.99 part"},
               {"FROM 1700 TO @#DJULIAN@ 1750", "-.-.1700 part"},
               {"BET 50 AND 40 BC", "-.-.-50 part"},
               {"BET 50 BC AND 20", "-.-.-50 part"},
               {"BET MAR AND JUN 1900", "-.-.1900 part"}});
}

TEST(GedcomDates, YearsBeforeChristAreNegative)
{
    expectAll({{"44 BC", "-.-.-44 whole"},
               {"5 B.C.", "-.-.-5 whole"},
               {"15 MAR 44 BCE", "15.3.-44 whole"},
               {"ABT 560 BC", "-.-.-560 part"},
               {"23 AD", "-.-.23 whole"},
               {"609 BC Megiddo", "-.-.-609 part"}});
}

TEST(GedcomDates, OfADoubleYearTheOneCountedFromJanuaryCounts)
{
    expectAll({{"12 MAR 1637/38", "12.3.1638 part"},
               {"1699/00", "-.-.1700 part"},
               {"JAN 1740/41", "-.1.1741 part"},
               {"ABT 1589/90", "-.-.1590 part"},
               {"@#DJULIAN@ 11 FEB 1731/32", "22.2.1732 converted"}});
}

TEST(GedcomDates, TheSecondYearOfADoubleYearIsWrittenInOneDigitInTwoOrWhole)
{
    expectAll({{"11 FEB 1731/2", "11.2.1732 part"},
               {"11 FEB 1731/1732", "11.2.1732 part"},
               {"FEB 1731/1732", "-.2.1732 part"},
               {"1 JAN 1699/00", "1.1.1700 part"},
               {"1 JAN 1699/0", "1.1.1700 part"},
               {"1 JAN 1699/1700", "1.1.1700 part"},
               {"24 MAR 999/1000", "24.3.1000 part"},
               {"24 MAR 731/732", "24.3.732 part"},
               {"@#DJULIAN@ 11 FEB 1731/2", "22.2.1732 converted"},
               {"@#DJULIAN@ 11 FEB 1731/1732", "22.2.1732 converted"},
               {"11 FEB 1731/3", "11.2.1731 part"},
               {"11 FEB 1731/732", "11.2.1731 part"},
               {"11 FEB 1731/1733", "11.2.1731 part"},
               {"11 FEB 1731/1632", "11.2.1731 part"},
               {"12 APR 1637/8", "12.4.1637 part"},
               {"12 APR 1637/1638", "12.4.1637 part"},
               {"1731/2", "-.-.1731 part"}});
}

TEST(GedcomDates, BeforeChristTheNextYearIsTheSmallerOne)
{
    expectAll({{"5 FEB 45/44 BC", "5.2.-44 part"},
               {"5 FEB 45/4 BC", "5.2.-44 part"},
               {"5 FEB 100/99 BC", "5.2.-99 part"},
               {"5 FEB 1000/999 BC", "5.2.-999 part"},
               {"100/99 BC", "-.-.-99 part"},
               {"5 FEB 45/46 BC", "5.2.-45 part"},
               {"45/46 BC", "-.-.-45 part"},
               {"5 FEB 1/0 BC", "5.2.-1 part"},
               {"5 FEB 45/44", "5.2.45 part"},
               {"BET FEB 45/44 AND 40 BC", "-.-.-44 part"},
               {"BET FEB 45/46 AND 50", "-.-.46 part"},
               {"@#DJULIAN@ 15 MAR 45/44 BC", "13.3.-44 converted"}});
}

TEST(GedcomDates, OtherYearsBesideOneAnotherAreAlternatives)
{
    expectAll({{"1815/1816", "-.-.1815 part"}, {"1815/17", "-.-.1815 part"}, {"12 APR 1637/38", "12.4.1637 part"}});
}

TEST(GedcomDates, OtherCalendarsAreConverted)
{
    expectAll({{"@#DJULIAN@ 12 JUL 100 BC", "10.7.-100 converted"},
               {"@#DJULIAN@ 15 MAR 44 BC", "13.3.-44 converted"},
               {"@#DJULIAN@ 19 AUG 14", "17.8.14 converted"},
               {"@#DHEBREW@ 14 NSN 4895", "6.4.1135 converted"},
               {"@#DHEBREW@ 1 TSH 5784", "16.9.2023 converted"},
               {"HEBREW 14 ADS 5784", "24.3.2024 converted"},
               {"@#DFRENCH R@ 11 FRIM 13", "2.12.1804 converted"},
               {"ABT @#DFRENCH R@ 11 FRIM 13", "2.12.1804 converted"},
               {"@#DFRENCH R@ 5 COMP 1", "21.9.1793 converted"},
               {"FRENCH_R 11 FRIM 13", "2.12.1804 converted"},
               {"@#DJULIAN@ ABT 12 MAY 1675", "22.5.1675 converted"},
               {"@#DGREGORIAN@ 5 MAR 1900", "5.3.1900 whole"},
               {"GREGORIAN 5 MAR 1900", "5.3.1900 whole"},
               {"ABT GREGORIAN 1900", "-.-.1900 part"}});
}

TEST(GedcomDates, OfOtherCalendarsWithoutADayOnlyTheYearIsTaken)
{
    // The Hebrew year begins in autumn, and so its first months lie in the year before that of its middle.
    expectAll({{"@#DHEBREW@ TSH 4800", "-.-.1039 converted"},
               {"@#DHEBREW@ CSH 5758", "-.-.1997 converted"},
               {"@#DHEBREW@ SHV 5758", "-.-.1998 converted"},
               {"@#DHEBREW@ ELL 5758", "-.-.1998 converted"},
               {"@#DFRENCH R@ VEND 11", "-.-.1802 converted"},
               {"@#DFRENCH R@ NIVO 11", "-.-.1803 converted"},
               {"@#DFRENCH R@ COMP 11", "-.-.1803 converted"},
               {"FROM @#DFRENCH R@ VEND 11 TO @#DFRENCH R@ VENT 11", "-.-.1802 converted"},
               {"JULIAN DEC 1066", "-.-.1066 converted"},
               {"@#DHEBREW@ 5784", "-.-.2024 converted"},
               {"@#DFRENCH R@ 7", "-.-.1799 converted"},
               {"@#DFRENCH R@ THER 2", "-.-.1794 converted"},
               {"JULIAN OCT 1066", "-.-.1066 converted"},
               {"JULIAN 1066", "-.-.1066 converted"},
               // A month of 29 days, the most of them in December.
               {"@#DHEBREW@ 30 TVT 5700", "-.-.1939 converted"},
               // A month that the year does not have.
               {"@#DHEBREW@ 1 ADS 5785", "-.-.2025 converted"},
               {"BET @#DHEBREW@ 1 NSN 5700 AND @#DHEBREW@ 30 ELL 5700", "-.-.1940 converted"},
               {"FROM @#DJULIAN@ 1700 TO @#DJULIAN@ 1750", "-.-.1700 converted"}});
}

TEST(GedcomDates, UnknownCalendarsAreNotTaken)
{
    expectAll({{"@#DROMAN@ 1000", "-.-.- calendar"},
               {"@#DUNKNOWN@ 1000", "-.-.- calendar"},
               {"@#DHEBREW@ soon 5700", "-.-.- calendar"},
               {"@#DJULIAN@ MAR", "-.-.- calendar"}});
}

TEST(GedcomDates, ADayThatDoesNotExistIsLeftOut)
{
    expectAll({{"32 JAN 1900", "-.1.1900 part"},
               {"30 FEB 1900", "-.2.1900 part"},
               {"29 FEB 1900", "29.2.1900 whole"},
               {"0 MAR 1900", "-.3.1900 part"},
               {"31 APR 1900", "-.4.1900 part"}});
}

TEST(GedcomDates, FreeTextGivesItsFirstClearYear)
{
    expectAll({{"1030 or 36", "-.-.1030 part"},
               {"soon bef. 4 March 1304", "-.-.1304 part"},
               {"1–3 July 1035", "-.-.1035 part"},
               {"497?", "-.-.497 part"},
               {"Died:  929 BC", "-.-.-929 part"},
               {"18 to 26 BC", "-.-.-26 part"},
               {"18 to 26 BCE", "-.-.-26 part"},
               {"c. 30 B.C.E., maybe", "-.-.-30 part"},
               {"maybe 30 CE", "-.-.30 part"},
               {"abt. 412 BC (or abt. 221 BC)", "-.-.-412 part"},
               {"26 DEC 1194 in Jesi", "26.12.1194 part"},
               {"05/06/1900", "-.-.1900 part"}});
}

// It may stand for years before Christ, or for the end of a life.
TEST(GedcomDates, AYearBehindALoneMinusIsNone)
{
    expectAll({{"-344", "-.-.- nothing"},
               {"-44", "-.-.- nothing"},
               {"ABT -344", "-.-.- nothing"},
               {"5 FEB -344", "-.-.- nothing"},
               {"\u2212344", "-.-.- nothing"},
               {"\u2013344", "-.-.- nothing"},
               {"-344 or -343", "-.-.- nothing"},
               {"-344 BC", "-.-.-344 part"},
               {"-44 BC", "-.-.-44 part"},
               {"1030-36", "-.-.1030 part"},
               {"1030 -1036", "-.-.1030 part"},
               {"1900-05-06", "-.-.1900 part"},
               {"6-5-1900", "-.-.1900 part"}});
}

TEST(GedcomDates, JunkIsNoDate)
{
    expectAll({{"", "-.-.- nothing"},
               {"Ginnungagap ", "-.-.- nothing"},
               {"(unknown)", "-.-.- nothing"},
               {"(about 1900)", "-.-.- nothing"},
               {"5? BC", "-.-.- nothing"},
               {"58 or 82", "-.-.- nothing"},
               {"10+", "-.-.- nothing"},
               {"About 14447 to 52", "-.-.- nothing"},
               {"0", "-.-.- nothing"},
               {"0000", "-.-.- nothing"},
               {"99999999999999999999", "-.-.- nothing"},
               {"ABT", "-.-.- nothing"},
               {"BET AND", "-.-.- nothing"},
               {"@#D", "-.-.- nothing"},
               {"1/2/3", "-.-.- nothing"}});
}

} // namespace
} // namespace lineara
