#pragma once

#include "platform/observer_list.h"

#include <QString>

#include <cstddef>
#include <memory>
#include <vector>

namespace lineara {

class ImportedIndex;
class ObjectContext;
class Person;

/// A line of an imported record that a person's own fields do not hold, or a heading above such lines.
struct FurtherFact
{
    QString label; ///< "Occupation"; below a line that a field holds, with that: "Birth: Place". Unknown tags as they
                   ///< are. Of a heading the family that it names: "Family with Anna Smith"
    QString value; ///< with its continuations, however long. What a pointer points at is told by its name, title or
                   ///< text, and stands between @ signs if no record says it. Empty for a heading
    int depth = 0; ///< 0, or one more than the fact or heading that it belongs to
    bool isHeading = false;
};

/// What the imported records of a family tell of its persons beyond the persons' fields. Main thread only.
///
/// Where everything is, is found out at the first question and kept: that one takes time with the records, others with
/// what the person's own records say.
class ImportedFacts
{
public:
    /// The family outlives this.
    explicit ImportedFacts(ObjectContext& family);
    ~ImportedFacts();

    /// First what the person's own record holds, in the order of its lines; then family by family, below a heading,
    /// those of the person's parents first, what its record says: of a family of one's own everything, of that of one's
    /// parents how one belongs to it. Members to whom the family has no link are named, and a date of which a field
    /// holds only a part is there, too. Lines that named a person who was removed are not, nor are those that spoke of
    /// the picture that was taken, even when the person has another one or none now: these tell nothing that holds.
    /// Families of which there is nothing to tell have no heading. Empty for a person who was not imported.
    std::vector<FurtherFact> of(const Person& person);

    /// How many facts these are, headings not counted.
    std::size_t count(const Person& person);

private:
    const ImportedIndex& index();

    ObjectContext& family_;
    std::unique_ptr<const ImportedIndex> index_;
    Subscription changes_;
};

} // namespace lineara
