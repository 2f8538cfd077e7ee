#include "gedcom_families.h"

#include "gedcom_persons.h"
#include "gedcom_pointer.h"
#include "import_texts.h"
#include "node_ledger.h"

#include <algorithm>

namespace lineara {
namespace {

using engine::PersonIndex;

/// Spouses taken from one family record. Partners are made of every pair of them, so that a broken file with
/// thousands in one record would ask for millions of links.
constexpr std::size_t mostSpouses = 64;

/// Keeps the first wish for each pair of persons, in order.
template<class Wish, class PairOf>
void dropRepeated(std::vector<Wish>& wishes, PairOf pairOf)
{
    using Entry = std::pair<std::pair<PersonIndex, PersonIndex>, std::uint32_t>;
    std::vector<Entry> entries;
    entries.reserve(wishes.size());
    for (const Wish& wish : wishes)
        entries.push_back({pairOf(wish), static_cast<std::uint32_t>(entries.size())});
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

} // namespace

void GedcomFamilies::Membership::finish()
{
    std::sort(pairs_.begin(), pairs_.end());
}

bool GedcomFamilies::Membership::contains(RecordIndex family, PersonIndex person) const
{
    return std::binary_search(pairs_.begin(), pairs_.end(), std::pair{family, person});
}

/// Reads one family record after the other.
class GedcomFamilies::Reader
{
public:
    Reader(GedcomFamilies& families, ImportNotes& notes) : families_(families), ledger_(tree_, notes) {}

    void read(RecordIndex family)
    {
        const GedcomRecords& records = families_.records_;
        tree_.read(records[family], records.isVersionSeven());
        ledger_.open();
        ledger_.take(0);
        std::vector<PersonIndex> spouses;
        for (const NodeIndex line : tree_.children(0)) {
            if (tree_[line].line.tag == "HUSB" || tree_[line].line.tag == "WIFE")
                readSpouse(family, line, spouses);
        }
        for (const NodeIndex line : tree_.children(0)) {
            if (tree_[line].line.tag == "CHIL")
                readChild(family, line, spouses);
        }
        ledger_.close();
    }

private:
    std::optional<PersonIndex> personAt(NodeIndex line)
    {
        const auto record = followPointer(families_.records_, tree_, ledger_, line, {"INDI"});
        return record ? families_.persons_.of(*record) : std::nullopt;
    }

    void readSpouse(RecordIndex family, NodeIndex line, std::vector<PersonIndex>& spouses)
    {
        const auto person = personAt(line);
        if (!person)
            return;
        if (std::find(spouses.begin(), spouses.end(), *person) != spouses.end()) {
            ledger_.refuse(
                line, ImportTexts::tr("partners of themselves"),
                ImportTexts::tr("%1 can't be a partner of the same person").arg(families_.persons_.label(*person)));
            return;
        }
        if (spouses.size() == mostSpouses) {
            ledger_.reject(line, ImportTexts::tr("one family can have %1 spouses at most").arg(mostSpouses));
            return;
        }
        ledger_.take(line);
        for (const PersonIndex other : spouses)
            families_.wishes_.partners.push_back({other, *person});
        spouses.push_back(*person);
        families_.spouses_.add(family, *person);
    }

    void readChild(RecordIndex family, NodeIndex line, const std::vector<PersonIndex>& spouses)
    {
        const auto person = personAt(line);
        if (!person)
            return;
        families_.children_.add(family, *person);
        if (spouses.empty()) {
            ledger_.reject(line,
                           ImportTexts::tr("the family names no parent for %1").arg(families_.persons_.label(*person)));
            return;
        }
        ledger_.take(line);
        for (const PersonIndex parent : spouses)
            families_.wishes_.offspring.push_back({parent, *person, tree_[line].line.number});
    }

    GedcomFamilies& families_;
    GedcomTree tree_;
    NodeLedger ledger_;
};

GedcomFamilies GedcomFamilies::read(const GedcomRecords& records, const GedcomPersons& persons, ImportNotes& notes,
                                    const Progress& progress)
{
    GedcomFamilies families(records, persons);
    Reader reader(families, notes);
    for (RecordIndex index = 0; index < records.size(); ++index) {
        if (!progress.goesOn(index, records.size()))
            break;
        if (records[index].tag != "FAM")
            continue;
        ++families.count_;
        reader.read(index);
    }
    dropRepeated(families.wishes_.partners, [](const auto& wish) { return std::minmax(wish.first, wish.second); });
    dropRepeated(families.wishes_.offspring, [](const auto& wish) { return std::pair{wish.parent, wish.child}; });
    families.spouses_.finish();
    families.children_.finish();
    return families;
}

void GedcomFamilies::checkClaims(PersonIndex person, const GedcomTree& tree, NodeLedger& ledger) const
{
    for (const NodeIndex line : tree.children(0)) {
        const std::string_view tag = tree[line].line.tag;
        if (tag == "FAMS" || tag == "FAMC")
            checkClaim(person, tree, ledger, line, tag == "FAMS");
    }
}

void GedcomFamilies::checkClaim(PersonIndex person, const GedcomTree& tree, NodeLedger& ledger, NodeIndex line,
                                bool isSpouse) const
{
    const auto family = followPointer(records_, tree, ledger, line, {"FAM"});
    if (!family)
        return;
    if ((isSpouse ? spouses_ : children_).contains(*family, person)) {
        ledger.take(line);
        return;
    }
    const QString role = isSpouse ? ImportTexts::tr("spouse") : ImportTexts::tr("child");
    ledger.reject(line, ImportTexts::tr("the family of line %1 does not name %2 as a %3")
                            .arg(records_[*family].line)
                            .arg(persons_.label(person), role));
}

} // namespace lineara
