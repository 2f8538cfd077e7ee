#include "object_members.h"

#include "markup_scan.h"
#include "numbers.h"
#include "repair_notes.h"
#include "store_texts.h"

#include <charconv>

namespace lineara::store {

QString shown(std::string_view text)
{
    constexpr std::size_t longest = 40;
    auto piece = QString::fromUtf8(text.data(), static_cast<qsizetype>(std::min(longest, text.size())));
    if (text.size() > longest)
        piece += u'…';
    return u"“%1”"_qs.arg(piece);
}

void ObjectMembers::enter(pugi::xml_node object, std::string_view id)
{
    object_ = object;
    id_ = id;
}

std::optional<std::vector<UnknownElement>> ObjectMembers::read(MemberSink& sink)
{
    std::vector<UnknownElement> unknown;
    if (std::string_view(object_.value()).find_first_not_of(blanks) != std::string_view::npos) {
        fail(object_, StoreTexts::tr("text stands outside its attributes."));
        return std::nullopt;
    }
    std::uint32_t position = 0;
    for (auto node = object_.first_child(); node; node = node.next_sibling(), ++position) {
        if (sink.takeAsWritten(node))
            continue;
        const auto verdict = readMember(sink, node);
        if (verdict == MemberSink::Verdict::Failed)
            return std::nullopt;
        if (verdict == MemberSink::Verdict::Unknown)
            unknown.push_back({position, source_.verbatim(node)});
    }
    return unknown;
}

MemberSink::Verdict ObjectMembers::readMember(MemberSink& sink, pugi::xml_node node)
{
    if (node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata) {
        fail(node, StoreTexts::tr("text stands outside its attributes."));
        return MemberSink::Verdict::Failed;
    }
    const std::string_view kind = node.name();
    const bool isAttribute = kind == "attribute";
    if (node.type() != pugi::node_element || !(isAttribute || kind == "relationship"))
        return MemberSink::Verdict::Unknown;
    const auto found = member(node);
    const auto verdict = isAttribute ? sink.attribute(found) : sink.relationship(found);
    if (verdict == MemberSink::Verdict::Taken && !found.stranger.empty())
        repair(StoreTexts::tr("%1 of %2 is not known and is left out when the file is saved.")
                   .arg(shown(found.stranger), shown(found.name)));
    return verdict;
}

Member ObjectMembers::member(pugi::xml_node node)
{
    Member result;
    result.node = node;
    const auto slotOf = [&result](std::string_view name) {
        return name == "name"          ? &result.name
               : name == "type"        ? &result.type
               : name == "destination" ? &result.destination
               : name == "idrefs"      ? &result.references
                                       : nullptr;
    };
    for (auto attribute = node.first_attribute(); attribute; attribute = attribute.next_attribute()) {
        const auto slot = slotOf(attribute.name());
        if (slot && slot->data() == nullptr)
            *slot = attribute.value();
        else
            result.stranger = attribute.name();
    }
    return result;
}

bool ObjectMembers::hasType(const Member& member, std::string_view type)
{
    return member.type == type || fail(member.node, StoreTexts::tr("attribute %1 has the type %2 instead of %3.")
                                                        .arg(shown(member.name), shown(member.type), shown(type)));
}

std::optional<DecodedText> ObjectMembers::decoded(const Member& member)
{
    auto result = member.node.first_child() ? decodeMixedContent(source_.content(member.node))
                                            : std::optional(decodeText(member.node.value()));
    if (!result)
        fail(member.node, StoreTexts::tr("attribute %1 holds an element instead of a text.").arg(shown(member.name)));
    else if (result->flaw == TextFlaw::BadReference)
        fail(member.node,
             StoreTexts::tr("attribute %1 holds a reference (“&…;”) that means nothing.").arg(shown(member.name)));
    else
        return result;
    return std::nullopt;
}

std::optional<QByteArray> ObjectMembers::bytes(const Member& member)
{
    if (!member.node.first_child())
        return QByteArray(member.node.value());
    auto text = decoded(member);
    return text ? std::optional(text->text.toUtf8()) : std::nullopt;
}

std::optional<QString> ObjectMembers::text(const Member& member)
{
    if (!hasType(member, "string"))
        return std::nullopt;
    auto result = decoded(member);
    if (!result)
        return std::nullopt;
    if (result->flaw == TextFlaw::Replaced)
        repair(StoreTexts::tr("attribute %1 held characters that no text can hold; they were replaced.")
                   .arg(shown(member.name)));
    return std::move(result->text);
}

std::optional<std::int32_t> ObjectMembers::int32(const Member& member)
{
    if (!hasType(member, "int32"))
        return std::nullopt;
    std::string_view digits = member.node.value();
    std::int32_t number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (error == std::errc() && end == digits.data() + digits.size() && !member.node.first_child())
        return number;
    const auto reason = error == std::errc::result_out_of_range
                            ? StoreTexts::tr("the value %1 of attribute %2 is out of range.")
                            : StoreTexts::tr("the value %1 of attribute %2 is not a whole number.");
    fail(member.node, reason.arg(shown(digits), shown(member.name)));
    return std::nullopt;
}

std::optional<QByteArray> ObjectMembers::binary(const Member& member)
{
    if (!hasType(member, "binary"))
        return std::nullopt;
    auto encoded = bytes(member);
    if (!encoded)
        return std::nullopt;
    encoded->removeIf([](char c) { return blanks.find(c) != std::string_view::npos; });
    const bool isWhole = encoded->size() % 4 == 0;
    auto result = QByteArray::fromBase64Encoding(std::move(*encoded), QByteArray::AbortOnBase64DecodingErrors);
    if (!isWhole || !result) {
        fail(member.node, StoreTexts::tr("attribute %1 is not valid base64.").arg(shown(member.name)));
        return std::nullopt;
    }
    return result.decoded.isNull() ? QByteArray("") : std::move(result.decoded);
}

bool ObjectMembers::references(const Member& member, std::string_view entity, Lists<Number>& list)
{
    if (member.destination != entity)
        return fail(member.node, StoreTexts::tr("relationship %1 has the destination %2 instead of %3.")
                                     .arg(shown(member.name), shown(member.destination), shown(entity)));
    return everyWord(member.references, [&](std::string_view word) {
        const auto number = parseObjectId(word);
        if (!number)
            return fail(member.node, StoreTexts::tr("relationship %1 refers to %2, which is no object id.")
                                         .arg(shown(member.name), shown(word)));
        list.add(*number);
        return true;
    });
}

std::optional<Number> ObjectMembers::reference(const Member& member, std::string_view entity)
{
    Lists<Number> list;
    if (!references(member, entity, list))
        return std::nullopt;
    list.close();
    if (list.total() > 1) {
        fail(member.node, StoreTexts::tr("relationship %1 refers to more than one object.").arg(shown(member.name)));
        return std::nullopt;
    }
    return list.total() == 0 ? 0 : list[0].front();
}

bool ObjectMembers::fail(pugi::xml_node node, const QString& reason)
{
    const auto place = node.type() == pugi::node_element ? node : object_;
    failure_ = StoreTexts::tr("line %1, object %2: %3").arg(source_.line(place)).arg(shown(id_), reason);
    return false;
}

void ObjectMembers::repair(const QString& what)
{
    tellRepair(repairs_, StoreTexts::tr("Object %1: %2").arg(shown(id_), what));
}

} // namespace lineara::store
