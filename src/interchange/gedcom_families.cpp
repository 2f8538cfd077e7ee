#include "gedcom_families.h"

#include "gedcom_persons.h"
#include "gedcom_pointer.h"
#include "node_ledger.h"

#include <QStringBuilder>

#include <algorithm>
#include <unordered_set>

namespace lineara {
namespace {

using engine::PersonIndex;

/// Spouses taken from one family record. Partners are made of every pair of them, so that a broken file with
/// thousands in one record would ask for millions of links.
constexpr std::size_t mostSpouses = 64;

/// Set of pairs of 32-bit numbers.
class PairSet
{
public:
    /// False if the pair was there.
    bool insert(std::uint32_t a, std::uint32_t b) { return pairs_.insert(key(a, b)).second; }
    bool contains(std::uint32_t a, std::uint32_t b) const { return pairs_.contains(key(a, b)); }

private:
    static std::uint64_t key(std::uint32_t a, std::uint32_t b) { return std::uint64_t{a} << 32 | b; }
    std::unordered_set<std::uint64_t> pairs_;
};

class FamilyReader
{
public:
    FamilyReader(const GedcomTree& tree, const GedcomPersons& persons, NodeLedger& ledger)
        : tree_(tree), persons_(persons), ledger_(ledger)
    {}

    FamilyWishes read()
    {
        for (const NodeIndex record : tree_.records()) {
            if (tree_[record].line.tag == "FAM")
                readFamily(record);
        }
        for (PersonIndex person = 0; person < persons_.size(); ++person)
            checkClaims(person);
        return std::move(wishes_);
    }

private:
    void readFamily(NodeIndex family)
    {
        ++wishes_.families;
        ledger_.take(family);
        std::vector<PersonIndex> spouses;
        for (const NodeIndex line : tree_.children(family)) {
            if (tree_[line].line.tag == "HUSB" || tree_[line].line.tag == "WIFE")
                readSpouse(family, line, spouses);
        }
        for (const NodeIndex line : tree_.children(family)) {
            if (tree_[line].line.tag == "CHIL")
                readChild(family, line, spouses);
        }
    }

    std::optional<PersonIndex> personAt(NodeIndex line)
    {
        const auto record = followPointer(tree_, ledger_, line, {"INDI"});
        return record ? persons_.of(*record) : std::nullopt;
    }

    void readSpouse(NodeIndex family, NodeIndex line, std::vector<PersonIndex>& spouses)
    {
        const auto person = personAt(line);
        if (!person)
            return;
        if (std::find(spouses.begin(), spouses.end(), *person) != spouses.end()) {
            ledger_.refuse(line, persons_.label(*person) % u" can't be a partner of the same person");
            return;
        }
        if (spouses.size() == mostSpouses) {
            ledger_.reject(line, QStringLiteral("one family can have %1 spouses at most").arg(mostSpouses));
            return;
        }
        ledger_.take(line);
        for (const PersonIndex other : spouses) {
            if (couples_.insert(std::min(other, *person), std::max(other, *person)))
                wishes_.partners.push_back({other, *person});
        }
        spouses.push_back(*person);
        spousesOf_.insert(family, *person);
    }

    void readChild(NodeIndex family, NodeIndex line, const std::vector<PersonIndex>& spouses)
    {
        const auto person = personAt(line);
        if (!person)
            return;
        childrenOf_.insert(family, *person);
        if (spouses.empty()) {
            ledger_.reject(line, QStringLiteral("the family names no parent for ") % persons_.label(*person));
            return;
        }
        ledger_.take(line);
        for (const PersonIndex parent : spouses) {
            if (parentAndChild_.insert(parent, *person))
                wishes_.offspring.push_back({parent, *person, line});
        }
    }

    void checkClaims(PersonIndex person)
    {
        for (const NodeIndex line : tree_.children(persons_.record(person))) {
            if (tree_[line].line.tag == "FAMS")
                checkClaim(person, line, spousesOf_, QStringLiteral("spouse"));
            else if (tree_[line].line.tag == "FAMC")
                checkClaim(person, line, childrenOf_, QStringLiteral("child"));
        }
    }

    void checkClaim(PersonIndex person, NodeIndex line, const PairSet& members, const QString& role)
    {
        const auto family = followPointer(tree_, ledger_, line, {"FAM"});
        if (!family)
            return;
        if (members.contains(*family, person))
            ledger_.take(line);
        else
            ledger_.reject(line, QStringLiteral("the family of line %1 does not name %2 as a %3")
                                     .arg(tree_[*family].line.number)
                                     .arg(persons_.label(person), role));
    }

    const GedcomTree& tree_;
    const GedcomPersons& persons_;
    NodeLedger& ledger_;
    FamilyWishes wishes_;
    PairSet couples_;
    PairSet parentAndChild_;
    PairSet spousesOf_;  // family and person
    PairSet childrenOf_; // family and person
};

} // namespace

FamilyWishes readFamilies(const GedcomTree& tree, const GedcomPersons& persons, NodeLedger& ledger)
{
    return FamilyReader(tree, persons, ledger).read();
}

} // namespace lineara
