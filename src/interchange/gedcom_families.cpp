#include "gedcom_families.h"

#include "gedcom_persons.h"
#include "gedcom_pointer.h"
#include "import_texts.h"
#include "node_ledger.h"

#include <algorithm>
#include <limits>
#include <tuple>

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

/// What the line with this tag below another one says: PEDI of both parents, _FREL of the father, _MREL of the mother.
Descent descentBelow(const GedcomTree& tree, NodeIndex line, std::string_view tag)
{
    static const QStringList births = {QStringLiteral("birth"), QStringLiteral("natural"),
                                       QStringLiteral("biological")};
    static const QStringList nothing = {QString(), QStringLiteral("unknown"), QStringLiteral("private")};
    auto said = tree.child(line, tag);
    const auto phrase = said ? tree.child(*said, "PHRASE") : std::nullopt;
    // What 7.0 has no word for is said by the phrase.
    if (phrase && tree.text(*said).trimmed().compare(u"other", Qt::CaseInsensitive) == 0)
        said = phrase;
    const QString word = said ? tree.text(*said).trimmed().toLower() : QString();
    if (births.contains(word))
        return Descent::ByBirth;
    return nothing.contains(word) ? Descent::Unsaid : Descent::Otherwise;
}

Descent preferred(Descent said, Descent otherwise)
{
    return said == Descent::Unsaid ? otherwise : said;
}

/// What is said of a parent in a family into which the child was born.
Descent afterBirth(Descent said)
{
    return said == Descent::Otherwise ? said : Descent::ByBirth;
}

/// The same in a family that adopted the child. Of a couple of which one alone did, the other one may be the parent.
Descent afterAdoption(Descent said, bool isAdopter)
{
    if (isAdopter)
        return Descent::Otherwise;
    return said == Descent::Otherwise ? Descent::Unsaid : said;
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
        Spouses spouses;
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
    struct Spouse
    {
        PersonIndex person;
        bool isFather;
    };
    using Spouses = std::vector<Spouse>;

    std::optional<PersonIndex> personAt(NodeIndex line)
    {
        const auto record = followPointer(families_.records_, tree_, ledger_, line, {"INDI"});
        return record ? families_.persons_.of(*record) : std::nullopt;
    }

    void readSpouse(RecordIndex family, NodeIndex line, Spouses& spouses)
    {
        const auto person = personAt(line);
        if (!person)
            return;
        if (std::ranges::find(spouses, *person, &Spouse::person) != spouses.end()) {
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
        for (const Spouse& other : spouses)
            families_.wishes_.partners.push_back({other.person, *person});
        spouses.push_back({*person, tree_[line].line.tag == "HUSB"});
        families_.spouses_.add(family, *person);
    }

    void readChild(RecordIndex family, NodeIndex line, const Spouses& spouses)
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
        for (const auto& [parent, isFather] : spouses) {
            const Descent descent = descentBelow(tree_, line, isFather ? "_FREL" : "_MREL");
            families_.wishes_.offspring.push_back(
                {parent, *person, tree_[line].line.number, family, isFather, descent});
        }
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
    families.spouses_.finish();
    families.children_.finish();
    families.findChildrenOfSeveral();
    return families;
}

void GedcomFamilies::findChildrenOfSeveral()
{
    constexpr RecordIndex none = std::numeric_limits<RecordIndex>::max();
    std::vector<RecordIndex> firstFamily(persons_.size(), none);
    isOfSeveral_.resize(persons_.size());
    for (const auto& wish : wishes_.offspring) {
        RecordIndex& first = firstFamily[wish.child];
        if (first == none)
            first = wish.family;
        else if (first != wish.family)
            isOfSeveral_[wish.child] = true;
    }
}

/// The wishes for a child take the places that they had, in another order.
void GedcomFamilies::rankOffspring()
{
    using Place = std::tuple<PersonIndex, Rank, std::size_t>;
    auto& wishes = wishes_.offspring;
    std::vector<Place> places;
    for (std::size_t at = 0; at < wishes.size(); ++at) {
        if (isOfSeveral_[wishes[at].child])
            places.emplace_back(wishes[at].child, Rank(), at);
    }
    std::ranges::sort(places);
    std::vector<Place> ranked = places;
    for (auto& [child, rank, at] : ranked)
        rank = rankOf(wishes[at]);
    std::ranges::sort(ranked);
    std::vector<FamilyWishes::Offspring> moved;
    moved.reserve(ranked.size());
    for (const auto& [child, rank, at] : ranked)
        moved.push_back(wishes[at]);
    for (std::size_t i = 0; i < places.size(); ++i)
        wishes[std::get<2>(places[i])] = moved[i];
    dropRepeated(wishes, [](const auto& wish) { return std::pair{wish.parent, wish.child}; });
}

GedcomFamilies::Rank GedcomFamilies::rankOf(const FamilyWishes::Offspring& wish) const
{
    const auto found = claims_.find({wish.child, wish.family});
    if (found == claims_.end())
        return {preferred(wish.descent, Descent::NotNamed), claims_.size()};
    const Claim& claim = found->second;
    return {preferred(wish.descent, wish.isFather ? claim.father : claim.mother), claim.order};
}

void GedcomFamilies::checkClaims(PersonIndex person, const GedcomTree& tree, NodeLedger& ledger)
{
    for (const NodeIndex line : tree.children(0)) {
        const std::string_view tag = tree[line].line.tag;
        if (tag == "FAMS" || tag == "FAMC")
            checkClaim(person, tree, ledger, line, tag == "FAMS");
    }
    if (isOfSeveral_[person])
        rememberEvents(person, tree);
}

void GedcomFamilies::rememberClaim(PersonIndex person, const GedcomTree& tree, NodeIndex line, RecordIndex family)
{
    const Descent both = descentBelow(tree, line, "PEDI");
    claims_.try_emplace({person, family}, Claim{claims_.size(), preferred(descentBelow(tree, line, "_FREL"), both),
                                                preferred(descentBelow(tree, line, "_MREL"), both)});
}

/// A birth or an adoption may name the family that it led to, and an adoption who of the two adopted.
void GedcomFamilies::rememberEvents(PersonIndex person, const GedcomTree& tree)
{
    for (const NodeIndex event : tree.children(0)) {
        const bool isBirth = tree[event].line.tag == "BIRT";
        const auto line = isBirth || tree[event].line.tag == "ADOP" ? tree.child(event, "FAMC") : std::nullopt;
        const auto family = line && tree[*line].line.isPointer ? records_.target(tree[*line].line.value) : std::nullopt;
        if (!family)
            continue;
        Claim& claim =
            claims_.try_emplace({person, *family}, Claim{claims_.size(), Descent::NotNamed, Descent::NotNamed})
                .first->second;
        if (isBirth) {
            claim.father = afterBirth(claim.father);
            claim.mother = afterBirth(claim.mother);
            continue;
        }
        const auto adopter = tree.child(*line, "ADOP");
        const QString who = adopter ? tree.text(*adopter).trimmed().toUpper() : QString();
        claim.father = afterAdoption(claim.father, who != u"WIFE");
        claim.mother = afterAdoption(claim.mother, who != u"HUSB");
    }
}

void GedcomFamilies::checkClaim(PersonIndex person, const GedcomTree& tree, NodeLedger& ledger, NodeIndex line,
                                bool isSpouse)
{
    const auto family = followPointer(records_, tree, ledger, line, {"FAM"});
    if (!family)
        return;
    if ((isSpouse ? spouses_ : children_).contains(*family, person)) {
        ledger.take(line);
        if (!isSpouse && isOfSeveral_[person])
            rememberClaim(person, tree, line, *family);
        return;
    }
    const QString role = isSpouse ? ImportTexts::tr("spouse") : ImportTexts::tr("child");
    ledger.reject(line, ImportTexts::tr("the family of line %1 does not name %2 as a %3")
                            .arg(records_[*family].line)
                            .arg(persons_.label(person), role));
}

} // namespace lineara
