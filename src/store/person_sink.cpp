#include "person_sink.h"

#include "field_names.h"
#include "numbers.h"

#include <charconv>

namespace lineara::store {

namespace {

constexpr std::size_t fieldCount = personTexts.size() + personNumbers.size();
constexpr std::array<std::string_view, 3> linkNames{"parents", "children", "partners"};
constexpr std::size_t poolSlot = fieldCount + linkNames.size();
constexpr std::size_t picSlot = poolSlot + 1;
constexpr std::size_t slotCount = picSlot + 1;

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
    return names;
}();

std::string writtenTag(std::size_t slot)
{
    const std::string name(slotNames[slot]);
    if (slot < fieldCount)
        return "attribute name=\"" + name + "\" type=\"" + (slot < personTexts.size() ? "string" : "int32") + "\">";
    const std::string entity = slot < poolSlot ? personEntity : slot == poolSlot ? poolEntity : picEntity;
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

/// Whether the text that ends at this position is the whole content of its attribute element.
bool isWholeContent(std::string_view rest, std::size_t end)
{
    constexpr std::string_view endTag("\0/attribute>", 12);
    return end > 0 && rest.substr(end).starts_with(endTag);
}

} // namespace

bool PersonSink::takeAsWritten(pugi::xml_node node)
{
    const auto& tags = writtenTags();
    for (auto slot = next_; slot < slotCount; ++slot) {
        const auto rest = fragment_.after(tags[slot], node);
        if (!rest)
            continue;
        if (!once_.isFree(slot) || !takeWritten(slot, *rest))
            return false;
        once_.note(slot);
        next_ = slot + 1;
        return true;
    }
    return false;
}

bool PersonSink::takeWritten(std::size_t slot, std::string_view rest)
{
    if (slot < personTexts.size())
        return takeWrittenText(person_.values.*personTexts[slot].value, rest);
    if (slot < fieldCount)
        return takeWrittenNumber(person_.values.*personNumbers[slot - personTexts.size()].value, rest);
    if (slot < poolSlot)
        return takeWrittenLinks(linkList(slot - fieldCount), rest);
    return takeWrittenReference(slot == poolSlot ? person_.pool : person_.pic, rest);
}

bool PersonSink::takeWrittenText(std::optional<QString>& value, std::string_view rest)
{
    std::size_t end = 0;
    auto text = decodeSimpleText(rest, end);
    if (!text || !isWholeContent(rest, end))
        return false;
    value = std::move(text);
    return true;
}

bool PersonSink::takeWrittenNumber(std::optional<std::int32_t>& value, std::string_view rest)
{
    std::int32_t number = 0;
    const auto [end, error] = std::from_chars(rest.data(), rest.data() + rest.size(), number);
    if (error != std::errc() || !isWholeContent(rest, static_cast<std::size_t>(end - rest.data())))
        return false;
    value = number;
    return true;
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

bool PersonSink::takeWrittenReference(Number& number, std::string_view rest)
{
    const auto reference = parsedValue(rest, "/>");
    const auto parsed = reference ? parseObjectId(*reference) : std::nullopt;
    number = parsed.value_or(number);
    return parsed.has_value();
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
        if (slot == poolSlot)
            return store(members_.reference(member, poolEntity), person_.pool);
        if (slot == picSlot)
            return store(members_.reference(member, picEntity), person_.pic);
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
