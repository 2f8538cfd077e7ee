#include "record_reader.h"

#include "field_names.h"
#include "numbers.h"
#include "person_sink.h"
#include "source_sink.h"
#include "store_texts.h"

namespace lineara::store {

namespace {

using Verdict = MemberSink::Verdict;

class PoolSink : public MemberSink
{
public:
    PoolSink(ObjectMembers& members, Lists<Number>& persons) : members_(members), persons_(persons), once_(members) {}

    Verdict attribute(const Member&) override { return Verdict::Unknown; }

    Verdict relationship(const Member& member) override
    {
        if (member.name != "persons")
            return Verdict::Unknown;
        const bool taken = once_.admit(0, member) && members_.references(member, personEntity, persons_);
        return taken ? Verdict::Taken : Verdict::Failed;
    }

private:
    ObjectMembers& members_;
    Lists<Number>& persons_;
    OnceOnly once_;
};

class PicSink : public MemberSink
{
public:
    PicSink(ObjectMembers& members, RawPic& pic) : members_(members), pic_(pic), once_(members) {}

    Verdict attribute(const Member& member) override
    {
        if (member.name != "data")
            return Verdict::Unknown;
        return once_.admit(0, member) ? store(members_.binary(member), pic_.data) : Verdict::Failed;
    }

    Verdict relationship(const Member& member) override
    {
        if (member.name != "person")
            return Verdict::Unknown;
        return once_.admit(1, member) ? store(members_.reference(member, personEntity), pic_.person) : Verdict::Failed;
    }

private:
    ObjectMembers& members_;
    RawPic& pic_;
    OnceOnly once_;
};

/// Keeps the unknown members of the last record, if there are any. False after a failure.
bool keep(std::optional<std::vector<UnknownElement>> unknown, std::size_t index, UnknownByIndex& all)
{
    if (unknown && !unknown->empty())
        all.emplace_back(index, std::move(*unknown));
    return unknown.has_value();
}

} // namespace

bool RecordReader::read(pugi::xml_node object, std::uint32_t position)
{
    static const auto personTag = parsedTag(R"(object type="PERSON" id=")");
    static const auto sourceTag = parsedTag(R"(object type="SOURCERECORD" id=")");
    if (const auto number = enterWritten(personTag, object))
        return readPerson(*number);
    if (const auto number = enterWritten(sourceTag, object))
        return readSource(*number);
    return readAnyObject(object, position);
}

std::optional<Number> RecordReader::enterWritten(const std::string& tag, pugi::xml_node object)
{
    const auto rest = fragment_.after(tag, object);
    const auto id = rest ? parsedValue(*rest, ">") : std::nullopt;
    const auto number = id ? parseObjectId(*id) : std::nullopt;
    if (number)
        members_.enter(object, *id);
    return number;
}

bool RecordReader::readAnyObject(pugi::xml_node object, std::uint32_t position)
{
    std::string_view type;
    std::string_view id;
    std::string_view stranger;
    for (auto attribute = object.first_attribute(); attribute; attribute = attribute.next_attribute()) {
        const std::string_view name = attribute.name();
        auto& slot = name == "type" ? type : name == "id" ? id : stranger;
        slot = &slot == &stranger ? name : std::string_view(attribute.value());
    }
    members_.enter(object, id);
    const auto number = parseObjectId(id);
    if (!number)
        return members_.fail(object, StoreTexts::tr("%1 is no object id.").arg(shown(id)));
    if (type != personEntity && type != poolEntity && type != picEntity && type != sourceEntity) {
        family_.unknownObjects.push_back({position, fragment_.verbatim(object)});
        family_.unknownNumbers.push_back(*number);
        return true;
    }
    if (!stranger.empty())
        members_.repair(StoreTexts::tr("%1 is not known and is left out when the file is saved.").arg(shown(stranger)));
    return type == personEntity ? readPerson(*number)
           : type == poolEntity ? readPool(*number)
           : type == picEntity  ? readPic(*number)
                                : readSource(*number);
}

bool RecordReader::readPerson(Number number)
{
    auto& person = family_.persons.emplace_back();
    person.number = number;
    PersonSink sink(fragment_, members_, person, family_);
    const bool kept = keep(members_.read(sink), family_.persons.size() - 1, family_.unknownOfPersons);
    family_.parents.close();
    family_.children.close();
    family_.partners.close();
    return kept;
}

bool RecordReader::readPool(Number number)
{
    family_.pools.push_back(number);
    PoolSink sink(members_, family_.members);
    const bool kept = keep(members_.read(sink), family_.pools.size() - 1, family_.unknownOfPools);
    family_.members.close();
    return kept;
}

bool RecordReader::readPic(Number number)
{
    auto& pic = family_.pics.emplace_back();
    pic.number = number;
    PicSink sink(members_, pic);
    return keep(members_.read(sink), family_.pics.size() - 1, family_.unknownOfPics);
}

bool RecordReader::readSource(Number number)
{
    auto& source = family_.sources.emplace_back();
    source.number = number;
    SourceSink sink(fragment_, members_, source, lastOrigin_);
    const bool kept = keep(members_.read(sink), family_.sources.size() - 1, family_.unknownOfSources);
    lastOrigin_ = source.origin.file;
    return kept;
}

} // namespace lineara::store
