#include "person_facts.h"

#include "fact_lines.h"
#include "family_facts.h"
#include "gedcom_notes.h"
#include "gedcom_pointer.h"
#include "imported_index.h"
#include "model/source_record.h"
#include "node_ledger.h"
#include "person_reading.h"
#include "record_names.h"
#include "tag_labels.h"
#include "taken_pictures.h"

#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

namespace lineara {
namespace {

bool isNoteRecord(const SourceRecord& record)
{
    const std::string_view tag = readableRecord(record).tag;
    return tag == "NOTE" || tag == "SNOTE";
}

/// Tells one person.
class PersonFacts
{
public:
    PersonFacts(const SourceRecord& record, const ImportedIndex& index, FactSheet& sheet)
        : record_(record), index_(index), sheet_(sheet), names_(index),
          tree_(readableRecord(record), index.isVersionSeven()), ledger_(tree_, notes_),
          lines_(record, tree_, index, names_, sheet, [this](NodeIndex line) { return judge(line); })
    {}

    void tell()
    {
        if (tree_.size() > 0) {
            readFields();
            findFamilies();
            findClaims();
            tellOwnLines();
        }
        lines_.tellStrays();
        for (const FamilyRole role : familyRoles) {
            for (const std::size_t family : order_)
                tellFamily(family, role);
        }
    }

private:
    /// A line in which the person says to belong to a family that says so, too.
    struct Claim
    {
        NodeIndex line;
        std::size_t family;
        FamilyRole role;
    };

    void readFields()
    {
        ledger_.open();
        const GedcomRecords none;
        SharedNotes noNotes(none);
        filesLeft_ = takePictureLines(record_, tree_, readPerson(tree_, ledger_, noNotes), index_, ledger_);
    }

    void tellOwnLines()
    {
        for (const NodeIndex line : tree_.children(0)) {
            if (isContinuation(tree_[line].line.tag))
                continue;
            lines_.tell(line);
            const auto left = filesLeft_.find(line);
            if (left != filesLeft_.end())
                tellFiles(tagLabel(tree_[line].line.tag), left->second);
        }
    }

    void tellFiles(const QString& label, const QStringList& titles)
    {
        for (const QString& title : titles)
            sheet_.add([&] { return FurtherFact{label, title}; });
    }

    void findFamilies()
    {
        for (const SourceRecord* family : index_.familiesNaming(tree_[0].line.xref)) {
            FamilyFacts facts(*family, record_, index_);
            if (!facts.has(FamilyRole::Child) && !facts.has(FamilyRole::Partner))
                continue;
            places_.emplace(family, families_.size());
            families_.push_back(std::move(facts));
        }
    }

    /// Families that the person names come in that order, and before the others.
    void findClaims()
    {
        isClaim_.assign(tree_.size(), false);
        std::vector<bool> isNamed(families_.size(), false);
        for (const NodeIndex line : tree_.children(0)) {
            const auto claim = claimAt(line);
            if (!claim)
                continue;
            isClaim_[line] = true;
            claims_.push_back(*claim);
            if (!isNamed[claim->family])
                order_.push_back(claim->family);
            isNamed[claim->family] = true;
        }
        for (std::size_t family = 0; family < families_.size(); ++family) {
            if (!isNamed[family])
                order_.push_back(family);
        }
    }

    std::optional<Claim> claimAt(NodeIndex line) const
    {
        const GedcomLine& pointer = tree_[line].line;
        if ((pointer.tag != "FAMC" && pointer.tag != "FAMS") || !leadsToARecord(pointer))
            return std::nullopt;
        const FamilyRole role = pointer.tag == "FAMC" ? FamilyRole::Child : FamilyRole::Partner;
        const auto found = places_.find(index_.target(pointer.value));
        if (found == places_.end() || !families_[found->second].has(role))
            return std::nullopt;
        return Claim{line, found->second, role};
    }

    /// What stands below a claim is told with the family.
    Telling judge(NodeIndex line) const
    {
        if (isClaim_[line])
            return Telling::Nothing;
        const GedcomLine& pointer = tree_[line].line;
        const bool isNote = pointer.level == 1 && (pointer.tag == "NOTE" || pointer.tag == "SNOTE");
        const SourceRecord* const note = isNote && leadsToARecord(pointer) ? index_.target(pointer.value) : nullptr;
        const bool isHeld = ledger_.fate(line) == LineFate::Taken || (note && isNoteRecord(*note));
        return isHeld ? Telling::OnlyBelow : Telling::Fact;
    }

    void tellFamily(std::size_t family, FamilyRole role)
    {
        if (!families_[family].has(role))
            return;
        families_[family].tell(role, names_, sheet_);
        for (const Claim& claim : claims_) {
            if (claim.family == family && claim.role == role)
                lines_.tellBelow(claim.line);
        }
    }

    const SourceRecord& record_;
    const ImportedIndex& index_;
    FactSheet& sheet_;
    RecordNames names_;
    GedcomTree tree_;
    ImportNotes notes_;
    NodeLedger ledger_;
    FactLines lines_;
    FilesLeft filesLeft_;
    std::vector<FamilyFacts> families_;
    std::unordered_map<const SourceRecord*, std::size_t> places_; // of families_
    std::vector<std::size_t> order_;                              // of families_
    std::vector<Claim> claims_;
    std::vector<bool> isClaim_; // by line
};

} // namespace

void tellPerson(const SourceRecord& record, const ImportedIndex& index, FactSheet& sheet)
{
    PersonFacts(record, index, sheet).tell();
}

} // namespace lineara
