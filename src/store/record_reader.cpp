#include "record_reader.h"

#include "field_names.h"
#include "numbers.h"

namespace lineara::store {

namespace {

using Verdict = MemberSink::Verdict;

/// Turns "a value or a failure" into a verdict, and the value into the field.
template<class T, class Field>
Verdict store(std::optional<T> value, Field& field)
{
    if (!value)
        return Verdict::Failed;
    field = std::move(*value);
    return Verdict::Taken;
}

/// Notices members that come twice.
class OnceOnly
{
public:
    explicit OnceOnly(ObjectMembers& members) : members_(members) {}

    bool admit(std::size_t slot, const Member& member)
    {
        const auto bit = 1u << slot;
        if ((seen_ & bit) != 0)
            return members_.fail(member.node, u"%1 stands there twice."_qs.arg(shown(member.name)));
        seen_ |= bit;
        return true;
    }

private:
    ObjectMembers& members_;
    unsigned seen_ = 0;
};

class PersonSink : public MemberSink
{
public:
    PersonSink(ObjectMembers& members, RawPerson& person, RawFamily& family)
        : members_(members), person_(person), family_(family), once_(members)
    {}

    Verdict attribute(const Member& member) override
    {
        // Files name the attributes in the order of the table, so the search begins where the last one ended.
        for (std::size_t tried = 0; tried < fieldCount; ++tried) {
            const auto field = (next_ + tried) % fieldCount;
            if (member.name == fieldNames[field]) {
                next_ = field + 1;
                return once_.admit(field, member) ? take(field, member) : Verdict::Failed;
            }
        }
        return Verdict::Unknown;
    }

    Verdict relationship(const Member& member) override
    {
        if (member.name == "parents")
            return takeLinks(0, member, family_.parents);
        if (member.name == "children")
            return takeLinks(1, member, family_.children);
        if (member.name == "partners")
            return takeLinks(2, member, family_.partners);
        if (member.name == "pool")
            return takeReference(3, member, poolEntity, person_.pool);
        if (member.name == "pic")
            return takeReference(4, member, picEntity, person_.pic);
        return Verdict::Unknown;
    }

private:
    static constexpr std::size_t fieldCount = personTexts.size() + personNumbers.size();
    static constexpr auto fieldNames = [] {
        std::array<std::string_view, fieldCount> names;
        std::size_t at = 0;
        for (const auto& field : personTexts)
            names[at++] = field.name;
        for (const auto& field : personNumbers)
            names[at++] = field.name;
        return names;
    }();

    Verdict take(std::size_t field, const Member& member)
    {
        if (field < personTexts.size())
            return store(members_.text(member), person_.values.*personTexts[field].value);
        return store(members_.int32(member), person_.values.*personNumbers[field - personTexts.size()].value);
    }

    Verdict takeLinks(std::size_t slot, const Member& member, Lists<Number>& list)
    {
        const bool taken = once_.admit(fieldCount + slot, member) && members_.references(member, personEntity, list);
        return taken ? Verdict::Taken : Verdict::Failed;
    }

    Verdict takeReference(std::size_t slot, const Member& member, std::string_view entity, Number& number)
    {
        return once_.admit(fieldCount + slot, member) ? store(members_.reference(member, entity), number)
                                                      : Verdict::Failed;
    }

    ObjectMembers& members_;
    RawPerson& person_;
    RawFamily& family_;
    OnceOnly once_;
    std::size_t next_ = 0;
};

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
        return members_.fail(object, u"%1 is no object id."_qs.arg(shown(id)));
    if (type != personEntity && type != poolEntity && type != picEntity) {
        family_.unknownObjects.push_back({position, source_.verbatim(object)});
        family_.unknownNumbers.push_back(*number);
        return true;
    }
    if (!stranger.empty())
        members_.repair(u"%1 is not known and is left out when the file is saved."_qs.arg(shown(stranger)));
    return type == personEntity ? readPerson(*number) : type == poolEntity ? readPool(*number) : readPic(*number);
}

bool RecordReader::readPerson(Number number)
{
    auto& person = family_.persons.emplace_back();
    person.number = number;
    PersonSink sink(members_, person, family_);
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

} // namespace lineara::store
