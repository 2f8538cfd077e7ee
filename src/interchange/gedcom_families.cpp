#include "gedcom_families.h"

#include "gedcom_persons.h"
#include "gedcom_pointer.h"
#include "import_texts.h"
#include "node_ledger.h"

#include <algorithm>
#include <utility>

namespace lineara {
namespace {

using engine::PersonIndex;

/// Spouses taken from one family record. Partners are made of every pair of them, so that a broken file with
/// thousands in one record would ask for millions of links.
constexpr std::size_t mostSpouses = 64;

/// Who belongs to which family: filled first, asked afterwards.
class Membership
{
public:
    void add(NodeIndex family, PersonIndex person) { pairs_.emplace_back(family, person); }
    void finish() { std::sort(pairs_.begin(), pairs_.end()); }
    bool contains(NodeIndex family, PersonIndex person) const
    {
        return std::binary_search(pairs_.begin(), pairs_.end(), std::pair{family, person});
    }

private:
    std::vector<std::pair<NodeIndex, PersonIndex>> pairs_;
};

/// Keeps the first wish for each pair of persons, in order.
template<class Wish, class PairOf>
void dropRepeated(std::vector<Wish>& wishes, PairOf pairOf)
{
    using Entry = std::pair<std::pair<PersonIndex, PersonIndex>, std::size_t>;
    std::vector<Entry> entries;
    entries.reserve(wishes.size());
    for (const Wish& wish : wishes)
        entries.push_back({pairOf(wish), entries.size()});
    std::sort(entries.begin(), entries.end());

    std::vector<bool> isRepeated(wishes.size(), false);
    for (std::size_t i = 1; i < entries.size(); ++i)
        isRepeated[entries[i].second] = entries[i].first == entries[i - 1].first;
    std::size_t kept = 0;
    for (std::size_t i = 0; i < wishes.size(); ++i) {
        if (!isRepeated[i])
            wishes[kept++] = wishes[i];
    }
    wishes.resize(kept);
}

class FamilyReader
{
public:
    FamilyReader(const GedcomTree& tree, const GedcomPersons& persons, NodeLedger& ledger, const Progress& progress)
        : tree_(tree), persons_(persons), ledger_(ledger), progress_(progress)
    {}

    FamilyWishes read()
    {
        for (const NodeIndex record : tree_.records()) {
            if (!progress_.goesOn(wishes_.families, record, 2 * std::size_t{tree_.size()}))
                break;
            if (tree_[record].line.tag == "FAM")
                readFamily(record);
        }
        dropRepeated(wishes_.partners, [](const auto& wish) { return std::minmax(wish.first, wish.second); });
        dropRepeated(wishes_.offspring, [](const auto& wish) { return std::pair{wish.parent, wish.child}; });
        spousesOf_.finish();
        childrenOf_.finish();
        for (PersonIndex person = 0; person < persons_.size(); ++person) {
            if (!progress_.goesOn(person, persons_.size() + person, 2 * std::size_t{persons_.size()}))
                break;
            checkClaims(person);
        }
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
            ledger_.refuse(line,
                           ImportTexts::tr("%1 can't be a partner of the same person").arg(persons_.label(*person)));
            return;
        }
        if (spouses.size() == mostSpouses) {
            ledger_.reject(line, ImportTexts::tr("one family can have %1 spouses at most").arg(mostSpouses));
            return;
        }
        ledger_.take(line);
        for (const PersonIndex other : spouses)
            wishes_.partners.push_back({other, *person});
        spouses.push_back(*person);
        spousesOf_.add(family, *person);
    }

    void readChild(NodeIndex family, NodeIndex line, const std::vector<PersonIndex>& spouses)
    {
        const auto person = personAt(line);
        if (!person)
            return;
        childrenOf_.add(family, *person);
        if (spouses.empty()) {
            ledger_.reject(line, ImportTexts::tr("the family names no parent for %1").arg(persons_.label(*person)));
            return;
        }
        ledger_.take(line);
        for (const PersonIndex parent : spouses)
            wishes_.offspring.push_back({parent, *person, line});
    }

    void checkClaims(PersonIndex person)
    {
        for (const NodeIndex line : tree_.children(persons_.record(person))) {
            if (tree_[line].line.tag == "FAMS")
                checkClaim(person, line, spousesOf_, ImportTexts::tr("spouse"));
            else if (tree_[line].line.tag == "FAMC")
                checkClaim(person, line, childrenOf_, ImportTexts::tr("child"));
        }
    }

    void checkClaim(PersonIndex person, NodeIndex line, const Membership& members, const QString& role)
    {
        const auto family = followPointer(tree_, ledger_, line, {"FAM"});
        if (!family)
            return;
        if (members.contains(*family, person))
            ledger_.take(line);
        else
            ledger_.reject(line, ImportTexts::tr("the family of line %1 does not name %2 as a %3")
                                     .arg(tree_[*family].line.number)
                                     .arg(persons_.label(person), role));
    }

    const GedcomTree& tree_;
    const GedcomPersons& persons_;
    NodeLedger& ledger_;
    const Progress& progress_;
    FamilyWishes wishes_;
    Membership spousesOf_;
    Membership childrenOf_;
};

} // namespace

FamilyWishes readFamilies(const GedcomTree& tree, const GedcomPersons& persons, NodeLedger& ledger,
                          const Progress& progress)
{
    return FamilyReader(tree, persons, ledger, progress).read();
}

} // namespace lineara
