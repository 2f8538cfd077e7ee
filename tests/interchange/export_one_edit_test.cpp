// One edit in a real family: every line that does not say what was changed has to stay.

#include "exported.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

using namespace lineara;

namespace {

using Lines = std::vector<std::string>;

#ifdef LINEARA_SANITIZED
constexpr unsigned rounds = 2;
#else
constexpr unsigned rounds = 8;
#endif

/// "@I1@" of "0 @I1@ INDI"; empty if the line is of another kind.
std::string xrefOf(const std::string& line, const std::string& tag)
{
    const std::string end = "@ " + tag;
    return line.starts_with("0 @") && line.ends_with(end) ? line.substr(2, line.size() - tag.size() - 3)
                                                          : std::string();
}

bool pointsAt(const std::string& line, const std::string& xref)
{
    return line.ends_with(" " + xref);
}

std::size_t endOf(const Lines& lines, std::size_t line)
{
    std::size_t end = line + 1;
    while (end < lines.size() && lines[end][0] > lines[line][0])
        ++end;
    return end;
}

/// Families of which one text has the record and the other has not.
std::set<std::string> lostFamilies(const Lines& before, const Lines& after)
{
    std::set<std::string> lost;
    for (const std::string& line : before) {
        if (const auto xref = xrefOf(line, "FAM"); !xref.empty())
            lost.insert(xref);
    }
    for (const std::string& line : after)
        lost.erase(xrefOf(line, "FAM"));
    return lost;
}

/// The lines without these records and without what points at them.
Lines without(const Lines& lines, const std::set<std::string>& gone)
{
    Lines rest;
    for (std::size_t at = 0; at < lines.size();) {
        const bool goes = gone.contains(xrefOf(lines[at], "INDI")) || gone.contains(xrefOf(lines[at], "FAM")) ||
                          (lines[at][0] != '0' &&
                           std::ranges::any_of(gone, [&](const auto& xref) { return pointsAt(lines[at], xref); }));
        if (!goes)
            rest.push_back(lines[at]);
        at = goes ? endOf(lines, at) : at + 1;
    }
    return rest;
}

/// How often a family names somebody: this person, or anybody.
std::size_t namings(const Lines& lines, const std::string& family, const std::string& xref)
{
    const auto record = std::ranges::find(lines, "0 " + family + " FAM");
    const auto first = static_cast<std::size_t>(record - lines.begin());
    std::size_t found = 0;
    for (std::size_t at = first + 1; at < endOf(lines, first); ++at) {
        const std::string tag = lines[at].substr(0, 6);
        const bool names = tag == "1 HUSB" || tag == "1 WIFE" || tag == "1 CHIL";
        found += names && (xref.empty() || pointsAt(lines[at], xref)) ? 1U : 0U;
    }
    return found;
}

/// A genealogy of which some persons were left out when it was written: many a pointer leads nowhere.
QByteArray withHoles(const QByteArray& text)
{
    QByteArray rest;
    std::size_t persons = 0;
    bool isLeftOut = false;
    for (const std::string& line : linesOf(text)) {
        if (line[0] == '0')
            isLeftOut = !xrefOf(line, "INDI").empty() && ++persons % 7 == 0;
        if (!isLeftOut)
            rest += QByteArray::fromStdString(line) + '\n';
    }
    return rest;
}

std::vector<QByteArray> genealogies()
{
    const QByteArray royal = dataFile(QStringLiteral("royal92.ged"));
    return {royal, withHoles(royal), withHoles(dataFile(QStringLiteral("shakespeare.ged"))),
            dataFile(QStringLiteral("bronte.ged"))};
}

/// One person of a genealogy, drawn by lot.
struct Drawn
{
    Drawn(const QByteArray& text, unsigned seed)
        : family(imported(text)), before(linesOf(exported(*family.context))),
          person(&member(family, std::mt19937(seed)() % membersOf(family).size())),
          record(linesOf(person->source()->text())), xref(xrefOf(record.front(), "INDI"))
    {}

    ImportedFamily family;
    Lines before;
    Person* person;
    Lines record;
    std::string xref;
};

} // namespace

TEST(OneEdit, RemovedPersonTakesAlongNothingButWhatPointsAtIt)
{
    for (const QByteArray& text : genealogies()) {
        for (unsigned seed = 1; seed <= rounds; ++seed) {
            Drawn drawn(text, seed);
            drawn.family.context->remove(*drawn.person);
            const Lines after = linesOf(exported(*drawn.family.context));
            std::set<std::string> gone = lostFamilies(drawn.before, after);
            for (const std::string& family : gone) {
                ASSERT_GT(namings(drawn.before, family, drawn.xref), 0U) << family << " seed " << seed;
                ASSERT_LT(namings(drawn.before, family, {}), 3U) << family << " seed " << seed;
            }
            gone.insert(drawn.xref);
            ASSERT_EQ(after, without(drawn.before, gone)) << drawn.xref << " seed " << seed;
        }
    }
}

TEST(OneEdit, RenamedPersonIsTheOnlyOneToChange)
{
    for (const QByteArray& text : genealogies()) {
        for (unsigned seed = 1; seed <= rounds; ++seed) {
            Drawn drawn(text, seed);
            drawn.person->setName(QStringLiteral("Somebody Else"));
            const Lines after = linesOf(exported(*drawn.family.context));
            const auto isName = [](const std::string& line) { return line.starts_with("1 NAME"); };
            Lines expected = drawn.before;
            const auto record = std::ranges::find(expected, drawn.record.front());
            const auto name = std::find_if(record, expected.end(), isName);
            const auto renamed = std::find(after.begin(), after.end(), drawn.record.front()) + (name - record);
            ASSERT_NE(renamed->find("Somebody"), std::string::npos) << *renamed;
            *name = *renamed;
            const auto first = static_cast<std::size_t>(name - expected.begin());
            const auto end = expected.begin() + static_cast<std::ptrdiff_t>(endOf(expected, first));
            const auto isPiece = [](const std::string& line) {
                return line.starts_with("2 GIVN") || line.starts_with("2 SURN") || line.starts_with("2 NICK");
            };
            expected.erase(std::remove_if(name + 1, end, isPiece), end);
            ASSERT_EQ(after, expected) << drawn.xref << " seed " << seed;
        }
    }
}
