#include "interchange/further_facts.h"

#include "fact_lines.h"
#include "imported_index.h"
#include "model/object_context.h"
#include "person_facts.h"

#include <variant>

namespace lineara {

ImportedFacts::ImportedFacts(ObjectContext& family) : family_(family)
{
    // Records that were removed before they were looked at may come back later.
    changes_ = family.observe([this](const Change& change) {
        const auto* const inserted = std::get_if<RecordInserted>(&change);
        if (!index_ || !inserted || inserted->record.entity() != Entity::Source)
            return;
        if (!index_->knows(inserted->record.recordId()))
            index_.reset();
    });
}

ImportedFacts::~ImportedFacts() = default;

const ImportedIndex& ImportedFacts::index()
{
    if (!index_)
        index_ = std::make_unique<const ImportedIndex>(family_);
    return *index_;
}

std::vector<FurtherFact> ImportedFacts::of(const Person& person)
{
    FactSheet sheet(true);
    if (person.source())
        tellPerson(*person.source(), index(), sheet);
    return sheet.takeFacts();
}

std::size_t ImportedFacts::count(const Person& person)
{
    FactSheet sheet(false);
    if (person.source())
        tellPerson(*person.source(), index(), sheet);
    return sheet.count();
}

} // namespace lineara
