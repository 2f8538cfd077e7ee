#include "family_facts.h"

#include "fact_lines.h"
#include "gedcom_pointer.h"
#include "import_texts.h"
#include "imported_index.h"
#include "model/person.h"
#include "model/source_record.h"
#include "record_names.h"
#include "tag_labels.h"

namespace lineara {
namespace {

bool isPartnerTag(std::string_view tag)
{
    return tag == "HUSB" || tag == "WIFE";
}

bool isLinked(const SourceRecord& person, const SourceRecord& other,
              const OrderedSet<Person*>& (Person::*links)() const)
{
    return person.person() && other.person() && (person.person()->*links)().contains(other.person());
}

} // namespace

/// Tells one family to one of its members.
class FamilyFacts::Teller
{
public:
    Teller(const FamilyFacts& facts, RecordNames& names, FactSheet& sheet)
        : facts_(facts), tree_(facts.tree_), lines_(*facts.family_, tree_, *facts.index_, names, sheet)
    {}

    void toAChild()
    {
        for (const NodeIndex line : tree_.children(0)) {
            const std::string_view tag = tree_[line].line.tag;
            const SourceRecord* const member = facts_.memberAt(line);
            if (tag == "CHIL" && member == facts_.person_)
                lines_.tellBelow(line);
            else if (isPartnerTag(tag) && !(member && isLinked(*facts_.person_, *member, &Person::parents)))
                tellMember(line, member ? ImportTexts::tr("Parent (not linked)") : tagLabel(tag));
        }
    }

    void toAPartner()
    {
        for (const NodeIndex line : tree_.children(0)) {
            const std::string_view tag = tree_[line].line.tag;
            if (isPartnerTag(tag))
                tellPartner(line);
            else if (tag == "CHIL")
                tellChild(line);
            else
                lines_.tell(line);
        }
        lines_.tellStrays();
    }

private:
    void tellPartner(NodeIndex line)
    {
        const QString label = tagLabel(tree_[line].line.tag);
        const SourceRecord* const member = facts_.memberAt(line);
        const bool isOneself = member == facts_.person_;
        if (member && (isOneself || isLinked(*facts_.person_, *member, &Person::partners)))
            lines_.tellBelow(line, label);
        else
            tellMember(line, member ? ImportTexts::tr("Partner (not linked)") : label);
    }

    /// How children belong to the family is told to them.
    void tellChild(NodeIndex line)
    {
        const SourceRecord* const member = facts_.memberAt(line);
        if (!member || !isLinked(*facts_.person_, *member, &Person::children))
            tellMember(line, member ? ImportTexts::tr("Child (not linked)") : tagLabel("CHIL"));
    }

    /// A line that names nobody says nothing, but some programs write one for each family.
    void tellMember(NodeIndex line, const QString& label)
    {
        if (tree_[line].line.value.empty() && tree_.textBytes(line).isEmpty())
            lines_.tellBelow(line, label);
        else
            lines_.tellFact(line, label);
    }

    const FamilyFacts& facts_;
    const GedcomTree& tree_;
    FactLines lines_;
};

FamilyFacts::FamilyFacts(const SourceRecord& family, const SourceRecord& person, const ImportedIndex& index)
    : family_(&family), person_(&person), index_(&index), tree_(readableRecord(family), index.isVersionSeven())
{
    for (const NodeIndex line : tree_.children(0)) {
        const std::string_view tag = tree_[line].line.tag;
        if ((tag != "CHIL" && !isPartnerTag(tag)) || memberAt(line) != person_)
            continue;
        const FamilyRole role = tag == "CHIL" ? FamilyRole::Child : FamilyRole::Partner;
        hasRole_[static_cast<std::size_t>(role)] = true;
    }
}

const SourceRecord* FamilyFacts::memberAt(NodeIndex line) const
{
    const GedcomLine& pointer = tree_[line].line;
    const SourceRecord* const member = leadsToARecord(pointer) ? index_->target(pointer.value) : nullptr;
    return member && readableRecord(*member).tag == "INDI" ? member : nullptr;
}

void FamilyFacts::tell(FamilyRole role, RecordNames& names, FactSheet& sheet) const
{
    const bool isChild = role == FamilyRole::Child;
    sheet.begin([this, isChild, &names] {
        return isChild ? names.ofFamily(*family_, tree_) : names.ofFamilyOf(*person_, *family_, tree_);
    });
    Teller teller(*this, names, sheet);
    if (isChild)
        teller.toAChild();
    else
        teller.toAPartner();
}

} // namespace lineara
