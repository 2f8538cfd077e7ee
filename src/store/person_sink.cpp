#include "person_sink.h"

#include "field_names.h"
#include "numbers.h"
#include "written_members.h"

namespace lineara::store {

namespace {

constexpr std::size_t fieldCount = personTexts.size() + personNumbers.size();
constexpr std::array<std::string_view, 3> linkNames{"parents", "children", "partners"};
constexpr std::size_t poolSlot = fieldCount + linkNames.size();
constexpr std::size_t picSlot = poolSlot + 1;
constexpr std::size_t sourceSlot = picSlot + 1;
constexpr std::size_t slotCount = sourceSlot + 1;

/// The names of all members, in the order in which they are written.
constexpr auto slotNames = [] {
    std::array<std::string_view, slotCount> names;
    std::size_t at = 0;
    for (const auto& field : personTexts)
        names[at++] = field.name;
    for (const auto& field : personNumbers)
        names[at++] = field.name;
    for (const auto name : linkNames)
        names[at++] = name;
    names[poolSlot] = "pool";
    names[picSlot] = "pic";
    names[sourceSlot] = "sourceRecord";
    return names;
}();

/// A relationship to at most one object: where its number goes, and the entity that it names.
struct Single
{
    Number RawPerson::*number;
    std::string_view entity;
};

Single singleOf(std::size_t slot)
{
    return slot == poolSlot  ? Single{&RawPerson::pool, poolEntity}
           : slot == picSlot ? Single{&RawPerson::pic, picEntity}
                             : Single{&RawPerson::source, sourceEntity};
}

std::string writtenTag(std::size_t slot)
{
    const std::string name(slotNames[slot]);
    if (slot < fieldCount)
        return "attribute name=\"" + name + "\" type=\"" + (slot < personTexts.size() ? "string" : "int32") + "\">";
    const std::string entity = slot < poolSlot ? personEntity : std::string(singleOf(slot).entity);
    return "relationship name=\"" + name + "\" type=\"" + (slot < poolSlot ? "0/0" : "0/1") + "\" destination=\"" +
           entity + "\" idrefs=\"";
}

/// The start tags of all members as the writer writes them.
const std::array<std::string, slotCount>& writtenTags()
{
    static const auto tags = [] {
        std::array<std::string, slotCount> result;
        for (std::size_t slot = 0; slot < slotCount; ++slot)
            result[slot] = parsedTag(writtenTag(slot));
        return result;
    }();
    return tags;
}

} // namespace

bool PersonSink::takeAsWritten(pugi::xml_node node)
{
    return written_.take(writtenTags(), node,
                         [this](std::size_t slot, std::string_view rest) { return takeWritten(slot, rest); });
}

bool PersonSink::takeWritten(std::size_t slot, std::string_view rest)
{
    if (slot < personTexts.size())
        return takeWrittenText(person_.values.*personTexts[slot].value, rest);
    if (slot < fieldCount)
        return takeWrittenNumber(person_.values.*personNumbers[slot - personTexts.size()].value, rest);
    if (slot < poolSlot)
        return takeWrittenLinks(linkList(slot - fieldCount), rest);
    return takeWrittenReference(person_.*singleOf(slot).number, rest);
}

bool PersonSink::takeWrittenLinks(Lists<Number>& list, std::string_view rest)
{
    const auto references = parsedValue(rest, "/>");
    const bool taken = references && everyWord(*references, [&list](std::string_view word) {
                           const auto number = parseObjectId(word);
                           if (number)
                               list.add(*number);
                           return number.has_value();
                       });
    if (!taken)
        list.drop();
    return taken;
}

MemberSink::Verdict PersonSink::attribute(const Member& member)
{
    for (std::size_t field = 0; field < fieldCount; ++field) {
        if (member.name == slotNames[field])
            return once_.admit(field, member) ? takeField(field, member) : Verdict::Failed;
    }
    return Verdict::Unknown;
}

MemberSink::Verdict PersonSink::takeField(std::size_t field, const Member& member)
{
    if (field < personTexts.size())
        return store(members_.text(member), person_.values.*personTexts[field].value);
    return store(members_.int32(member), person_.values.*personNumbers[field - personTexts.size()].value);
}

MemberSink::Verdict PersonSink::relationship(const Member& member)
{
    for (std::size_t slot = fieldCount; slot < slotCount; ++slot) {
        if (member.name != slotNames[slot])
            continue;
        if (!once_.admit(slot, member))
            return Verdict::Failed;
        if (slot >= poolSlot)
            return store(members_.reference(member, singleOf(slot).entity), person_.*singleOf(slot).number);
        const bool taken = members_.references(member, personEntity, linkList(slot - fieldCount));
        return taken ? Verdict::Taken : Verdict::Failed;
    }
    return Verdict::Unknown;
}

Lists<Number>& PersonSink::linkList(std::size_t link)
{
    return link == 0 ? family_.parents : link == 1 ? family_.children : family_.partners;
}

} // namespace lineara::store
