#include "kinship_records.h"

#include "model/object_context.h"
#include "model/person.h"
#include "model/source_record.h"
#include "recorded_sex.h"

#include <algorithm>

namespace lineara {

KinshipRecords::KinshipRecords(const Pool& pool) : snapshot_(pool.snapshot())
{
    dates_.reserve(snapshot_.persons.size());
    sexes_.reserve(snapshot_.persons.size());
    for (const RecordId id : snapshot_.persons) {
        const Person& person = *pool.context().person(id);
        dates_.push_back({{person.birthYear(), person.birthMonth(), person.birthDay()},
                          {person.deathYear(), person.deathMonth(), person.deathDay()}});
        const SourceRecord* const source = person.source();
        sexes_.push_back(source ? recordedSex(source->text()) : kinship::Sex::Unknown);
    }
}

bool KinshipRecords::concerns(const Change& change)
{
    constexpr PersonAttributes dates = PersonAttribute::BirthDay | PersonAttribute::BirthMonth |
                                       PersonAttribute::BirthYear | PersonAttribute::DeathDay |
                                       PersonAttribute::DeathMonth | PersonAttribute::DeathYear;
    if (const auto* const one = std::get_if<AttributesChanged>(&change))
        return bool(one->attributes & dates);
    if (const auto* const link = std::get_if<LinkChanged>(&change))
        return link->relationship != Relationship::PersonPic;
    return std::holds_alternative<RecordRemoved>(change);
}

} // namespace lineara
