#include "model/source_record.h"

#include "model/text_hygiene.h"

#include <utility>

namespace lineara {

SourceRecord::SourceRecord(ObjectContext& context, RecordId recordId, SourceOrigin origin, QByteArray text)
    : Record(context, Entity::Source, recordId), text_(writableUtf8(std::move(text))), origin_(std::move(origin))
{
    origin_.file = writableText(std::move(origin_.file));
    if (!origin_.dangling.isEmpty())
        origin_.dangling = writableUtf8(std::move(origin_.dangling));
}

SourceRecord::~SourceRecord() = default;

const std::vector<UnknownElement>& SourceRecord::unknown() const
{
    static const std::vector<UnknownElement> none;
    return unknown_ ? *unknown_ : none;
}

} // namespace lineara
