#include "gedcom_persons.h"

#include "import_texts.h"
#include "person_reading.h"

namespace lineara {

GedcomPersons::GedcomPersons(const GedcomRecords& records) : records_(records), numbers_(records.size(), 0)
{
    for (RecordIndex index = 0; index < records.size(); ++index) {
        if (records[index].tag != "INDI")
            continue;
        persons_.push_back(index);
        numbers_[index] = size();
    }
}

std::optional<engine::PersonIndex> GedcomPersons::of(RecordIndex record) const
{
    const std::uint32_t number = numbers_[record];
    return number == 0 ? std::nullopt : std::optional<engine::PersonIndex>(number - 1);
}

QString GedcomPersons::label(engine::PersonIndex person) const
{
    const auto [known, isNew] = labels_.try_emplace(person);
    if (isNew) {
        const GedcomRecord& record = records_[persons_[person]];
        const QString name = shownName(GedcomTree(record, records_.isVersionSeven()));
        known->second = name.isEmpty() ? ImportTexts::tr("the person of line %1").arg(record.line) : name;
    }
    return known->second;
}

} // namespace lineara
