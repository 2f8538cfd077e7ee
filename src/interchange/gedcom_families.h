#pragma once

#include "gedcom_tree.h"

#include "engine/family_graph.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <utility>
#include <vector>

namespace lineara {

class GedcomPersons;
class ImportNotes;
class NodeLedger;

/// What a file says about how a child came to a parent, the earlier the more the parent counts.
enum class Descent : std::uint8_t
{
    ByBirth,
    Unsaid,
    NotNamed, ///< nor does the child name the family
    Otherwise ///< by adoption, for example
};

/// The links that the families of a file ask for, each pair once: in file order, but for children of several families.
struct FamilyWishes
{
    struct Partners
    {
        engine::PersonIndex first;
        engine::PersonIndex second;
    };
    struct Offspring
    {
        engine::PersonIndex parent;
        engine::PersonIndex child;
        std::uint32_t line; ///< of the CHIL that asks for it
        RecordIndex family;
        bool isFather;   ///< named as a husband
        Descent descent; ///< as the family says it, of this parent alone
    };

    std::vector<Partners> partners;
    std::vector<Offspring> offspring;
};

/// Reads the families of a file: what a family record names decides. What a person claims about families beyond that is
/// told.
class GedcomFamilies
{
public:
    /// Unfinished if the progress is stopped meanwhile.
    static GedcomFamilies read(const GedcomRecords& records, const GedcomPersons& persons, ImportNotes& notes,
                               const Progress& progress);

    std::size_t count() const { return count_; }
    const FamilyWishes& wishes() const { return wishes_; }

    /// Accounts for the pointers to families in the record of a person. One person after the other, in file order.
    void checkClaims(engine::PersonIndex person, const GedcomTree& tree, NodeLedger& ledger);

    /// Afterwards: the wishes for a child of several families, who can have two parents only, in the order in which
    /// they count. Parents by birth come first, then those of whom nothing is said, both in the order in which the
    /// child names their families, then those of families that it does not name, then others (by adoption, for
    /// example).
    void rankOffspring();

private:
    class Reader;

    /// Who belongs to which family: filled first, asked afterwards.
    class Membership
    {
    public:
        void add(RecordIndex family, engine::PersonIndex person) { pairs_.emplace_back(family, person); }
        void finish();
        bool contains(RecordIndex family, engine::PersonIndex person) const;

    private:
        std::vector<std::pair<RecordIndex, engine::PersonIndex>> pairs_;
    };

    GedcomFamilies(const GedcomRecords& records, const GedcomPersons& persons) : records_(records), persons_(persons) {}
    void checkClaim(engine::PersonIndex person, const GedcomTree& tree, NodeLedger& ledger, NodeIndex line,
                    bool isSpouse);
    void findChildrenOfSeveral();

    /// What a child of several families says about one of them.
    struct Claim
    {
        std::size_t order = 0;
        Descent father = Descent::Unsaid;
        Descent mother = Descent::Unsaid;
    };
    /// The smaller the earlier.
    using Rank = std::pair<Descent, std::size_t>;

    void rememberClaim(engine::PersonIndex person, const GedcomTree& tree, NodeIndex line, RecordIndex family);
    void rememberEvents(engine::PersonIndex person, const GedcomTree& tree);
    Rank rankOf(const FamilyWishes::Offspring& wish) const;

    const GedcomRecords& records_;
    const GedcomPersons& persons_;
    std::size_t count_ = 0;
    FamilyWishes wishes_;
    Membership spouses_;
    Membership children_;
    std::vector<bool> isOfSeveral_; ///< by person: several families name the child
    std::map<std::pair<engine::PersonIndex, RecordIndex>, Claim> claims_;
};

} // namespace lineara
