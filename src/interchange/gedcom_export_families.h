#pragma once

#include "store/family_content.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace lineara {

/// Place of a person in FamilyContent::persons().
using ExportPerson = std::uint32_t;
using PersonPair = std::pair<ExportPerson, ExportPerson>;

/// All links of a family, each once: sorted and without repetition.
struct ExportLinks
{
    std::vector<PersonPair> partners;  ///< the smaller one first
    std::vector<PersonPair> offspring; ///< parent, child
    friend bool operator==(const ExportLinks&, const ExportLinks&) = default;

    void sort();
};

/// The links of a family as places of persons, in the order of its sets.
class ExportGraph
{
public:
    explicit ExportGraph(const FamilyContent& family);

    ExportPerson size() const { return static_cast<ExportPerson>(partners_.size()); }
    std::optional<ExportPerson> of(RecordId id) const;
    const std::vector<ExportPerson>& parents(ExportPerson person) const { return parents_[person]; }
    const std::vector<ExportPerson>& children(ExportPerson person) const { return children_[person]; }
    const std::vector<ExportPerson>& partners(ExportPerson person) const { return partners_[person]; }
    ExportLinks links() const;

private:
    std::vector<ExportPerson> placesOf(std::span<const RecordId> ids) const;

    std::unordered_map<RecordId, ExportPerson> places_;
    std::vector<std::vector<ExportPerson>> parents_;
    std::vector<std::vector<ExportPerson>> children_;
    std::vector<std::vector<ExportPerson>> partners_;
};

/// Who belongs to a family record, kept or new.
struct FamilySheet
{
    struct Member
    {
        ExportPerson person;
        std::optional<std::size_t> line; ///< of the kept record; no value if it is to be added
    };

    std::optional<std::size_t> record; ///< place among the kept records; no value for a new one
    std::vector<Member> spouses;
    std::vector<Member> children;
    std::vector<std::size_t> struckLines;
    std::size_t missed = 0;    ///< members who were removed
    std::size_t strangers = 0; ///< named ones whose records were never there
    bool canGrow = true;       ///< pointers can name it
    bool saysMore = false;     ///< about its members, a wedding for example
    bool isChanged = false;
    bool isDropped = false;
};

/// A FAMS or FAMC line that comes or goes.
struct FamilyClaim
{
    ExportPerson person;
    std::size_t family;
    bool isSpouse;
    bool isAdded;
};

/// Finds family records for links: those that were kept lose what was unlinked and take up what fits, and new ones say
/// the rest. Where nothing changed, nothing is touched.
class FamilyPlan
{
public:
    FamilyPlan(const ExportGraph& graph, std::vector<FamilySheet> kept);

    /// `before` is what the import makes of the kept records.
    void follow(const ExportLinks& before);

    const std::vector<FamilySheet>& families() const { return families_; }
    const std::vector<FamilyClaim>& claims() const { return claims_; }

private:
    void strikeGone(const ExportLinks& before, const ExportLinks& now);
    void strikeRefused(const ExportLinks& before, const ExportLinks& now);
    void strikeUnsure();
    void strikeRefusedChildren(std::size_t family, const std::vector<PersonPair>& refused);
    void strikeSpouses(std::size_t family, const std::vector<PersonPair>& gone);
    void strikeChildren(std::size_t family, const std::vector<PersonPair>& gone);
    void strike(std::size_t family, bool isSpouse, std::size_t member);
    void index();
    ExportLinks said() const;
    void addCouples(const std::vector<PersonPair>& unsaid);
    void addChildren(const std::vector<PersonPair>& unsaid);
    bool isSaid(ExportPerson parent, ExportPerson child) const;
    void addChild(ExportPerson parent, ExportPerson child);
    void leaveHalfFamilies(ExportPerson child, std::span<const ExportPerson> parents);
    std::optional<std::size_t> growing(ExportPerson alone, ExportPerson partner) const;
    std::optional<std::size_t> familyOf(std::span<const ExportPerson> spouses) const;
    std::size_t addFamily(std::span<const ExportPerson> spouses);
    void addMember(std::size_t family, ExportPerson person, bool isSpouse);
    void dropEmpty();
    bool arePartners(ExportPerson a, ExportPerson b) const;

    const ExportGraph& graph_;
    std::vector<FamilySheet> families_;
    std::vector<FamilyClaim> claims_;
    std::vector<PersonPair> refused_;                ///< what stays because the import is sure to refuse it again
    std::vector<std::vector<std::size_t>> asSpouse_; ///< by person
    std::vector<std::vector<std::size_t>> asChild_;
};

} // namespace lineara
