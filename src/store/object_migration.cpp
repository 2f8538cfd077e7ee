#include "object_migration.h"

#include "markup_scan.h"
#include "numbers.h"
#include "store_texts.h"
#include "stored_date.h"

namespace lineara::store {

namespace {

std::string_view viewOf(const QByteArray& bytes)
{
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

std::string_view typeName(AttributeType type)
{
    switch (type) {
    case AttributeType::String:
        return "string";
    case AttributeType::Int32:
        return "int32";
    case AttributeType::Date:
        return "date";
    case AttributeType::Binary:
        break;
    }
    return "binary";
}

/// Where the value of the attribute begins in the text of a start tag.
std::size_t valueBegin(std::string_view tag, std::string_view attribute)
{
    for (std::size_t at = tag.find_first_of(blanks); at < tag.size();) {
        at = tag.find_first_not_of(blanks, at);
        const auto equals = tag.find('=', at);
        const auto quote = tag.find_first_of("\"'", equals);
        if (equals == std::string_view::npos || quote == std::string_view::npos)
            return std::string_view::npos;
        const auto name = tag.substr(at, tag.find_first_of(" \t\r\n=", at) - at);
        if (name == attribute)
            return quote + 1;
        at = tag.find(tag[quote], quote + 1) + 1;
    }
    return std::string_view::npos;
}

/// The element with another value of one attribute of its start tag.
QByteArray revalued(QByteArray xml, std::string_view attribute, std::string_view oldValue, const QByteArray& newValue)
{
    const auto begin = valueBegin(viewOf(xml), attribute);
    if (begin == std::string_view::npos)
        return xml;
    return xml.replace(static_cast<qsizetype>(begin), static_cast<qsizetype>(oldValue.size()), newValue);
}

/// A name that the newer version gives no meaning.
QByteArray suffixed(std::string_view name, int version)
{
    return QByteArray(name.data(), static_cast<qsizetype>(name.size())) + '_' + QByteArray::number(version);
}

} // namespace

bool ObjectMigration::write(pugi::xml_node object)
{
    std::string_view type;
    std::string_view id;
    bool hasStranger = false;
    for (auto attribute = object.first_attribute(); attribute; attribute = attribute.next_attribute()) {
        const std::string_view name = attribute.name();
        hasStranger = hasStranger || (name != "type" && name != "id");
        if (name == "type")
            type = attribute.value();
        else if (name == "id")
            id = attribute.value();
    }
    members_.enter(object, id);
    const auto number = parseObjectId(id);
    if (!number)
        return members_.fail(object, StoreTexts::tr("%1 is no object id.").arg(shown(id)));
    number_ = *number;
    entity_ = plan_.entity(type);
    references_.addObject(number_, entity_);
    if (!entity_) {
        writeStrangeObject(object, type);
        return true;
    }
    if (std::string_view(object.value()).find_first_not_of(blanks) != std::string_view::npos)
        return members_.fail(object, StoreTexts::tr("text stands outside its attributes."));
    seen_.assign(entity_->properties.size(), false);
    writeStartTag(object, type, id, hasStranger);
    for (auto node = object.first_child(); node; node = node.next_sibling()) {
        if (!writeMember(node))
            return false;
    }
    out_.raw("    </object>\n");
    return true;
}

void ObjectMigration::writeStartTag(pugi::xml_node object, std::string_view type, std::string_view id, bool hasStranger)
{
    out_.raw("    ");
    if (hasStranger) {
        const auto xml = fragment_.verbatim(object);
        auto tag = viewOf(xml).substr(0, markupEnd(viewOf(xml), 0));
        tag.remove_suffix(tag.ends_with("/>") ? 2 : 1);
        out_.raw(tag);
    } else {
        out_.raw("<object type=\"");
        out_.raw(type);
        out_.raw("\" id=\"");
        out_.raw(id);
        out_.raw("\"");
    }
    out_.raw(">\n");
}

void ObjectMigration::writeStrangeObject(pugi::xml_node object, std::string_view type)
{
    auto xml = fragment_.verbatim(object);
    if (plan_.isKnownLater(type))
        xml = revalued(std::move(xml), "type", type, suffixed(type, plan_.sourceVersion()));
    out_.raw("    ");
    out_.raw(viewOf(xml));
    out_.raw("\n");
}

bool ObjectMigration::writeMember(pugi::xml_node node)
{
    if (node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata)
        return members_.fail(node, StoreTexts::tr("text stands outside its attributes."));
    const std::string_view kind = node.name();
    const bool isRelationship = kind == "relationship";
    if (node.type() != pugi::node_element || !(isRelationship || kind == "attribute")) {
        writeStranger(node, {}, false);
        return true;
    }
    const auto member = ObjectMembers::member(node);
    const auto known = entity_->find(member.name, isRelationship);
    if (!known) {
        writeStranger(node, member.name, entity_->isKnownLater(member.name, isRelationship));
        return true;
    }
    if (seen_[*known])
        return members_.fail(node, StoreTexts::tr("%1 stands there twice.").arg(shown(member.name)));
    seen_[*known] = true;
    const auto& property = entity_->properties[*known];
    return isRelationship ? writeRelationship(property, member) : writeAttribute(property, member);
}

void ObjectMigration::writeStranger(pugi::xml_node node, std::string_view name, bool isKnownLater)
{
    auto xml = fragment_.verbatim(node);
    if (isKnownLater)
        xml = revalued(std::move(xml), "name", name, suffixed(name, plan_.sourceVersion()));
    writeLine(xml);
}

void ObjectMigration::writeLine(const QByteArray& xml)
{
    out_.raw(memberIndent);
    out_.raw(viewOf(xml));
    out_.raw("\n");
}

bool ObjectMigration::writeRelationship(const PropertyPlan& property, const Member& member)
{
    if (member.destination != property.destination)
        return members_.fail(member.node,
                             StoreTexts::tr("relationship %1 has the destination %2 instead of %3.")
                                 .arg(shown(member.name), shown(member.destination), shown(property.destination)));
    Lists<Number> targets;
    if (!members_.references(member, property.destination, targets))
        return false;
    targets.close();
    if (!property.isToMany && targets.total() > 1)
        return members_.fail(member.node,
                             StoreTexts::tr("relationship %1 refers to more than one object.").arg(shown(member.name)));
    for (const auto target : targets[0])
        references_.addReference(number_, property, target);
    if (targets.total() == 0 && member.stranger.empty())
        return true;
    for (const auto& product : property.products)
        takeOver(property, member, product);
    return true;
}

bool ObjectMigration::writeAttribute(const PropertyPlan& property, const Member& member)
{
    if (property.type == AttributeType::Date)
        return writeDate(property, member);
    if (!isSound(property, member))
        return false;
    for (const auto& product : property.products)
        takeOver(property, member, product);
    return true;
}

bool ObjectMigration::isSound(const PropertyPlan& property, const Member& member)
{
    switch (property.type) {
    case AttributeType::String:
        return members_.text(member).has_value();
    case AttributeType::Int32:
        return members_.int32(member).has_value();
    case AttributeType::Binary:
        return members_.binary(member).has_value();
    case AttributeType::Date:
        break;
    }
    return true;
}

bool ObjectMigration::writeDate(const PropertyPlan& property, const Member& member)
{
    if (member.type != "date")
        return members_.fail(member.node, StoreTexts::tr("attribute %1 has the type %2 instead of “date”.")
                                              .arg(shown(member.name), shown(member.type)));
    const auto date = member.node.first_child() ? std::nullopt : parseDate(member.node.value());
    if (!date)
        return members_.fail(member.node, StoreTexts::tr("the value %1 of attribute %2 is no number of seconds.")
                                              .arg(shown(member.node.value()), shown(member.name)));
    bool isLost = false;
    for (const auto& product : property.products) {
        if (!product.function) {
            takeOver(property, member, product);
            continue;
        }
        const auto number = product.function(*date);
        if (number)
            writeNumber(product.name, *number);
        isLost = isLost || !number || !member.stranger.empty();
    }
    // A time beyond every calendar has no year. It stays, as an attribute that the newer version does not know, and so
    // does one that somebody wrote more about.
    if (isLost)
        writeStranger(member.node, member.name, entity_->isKnownLater(member.name, false));
    return true;
}

void ObjectMigration::takeOver(const PropertyPlan& property, const Member& member, const Product& product)
{
    // What goes with the property although it means nothing is told when the file is read, as it always is.
    if (!member.stranger.empty())
        return writeLine(revalued(fragment_.verbatim(member.node), "name", member.name, product.name.c_str()));
    const auto begin = [&](std::string_view element) {
        out_.raw(memberIndent);
        out_.raw(element);
        out_.raw(product.name);
        out_.raw("\" type=\"");
    };
    if (property.isRelationship) {
        begin("<relationship name=\"");
        out_.raw(property.isToMany ? "0/0" : "0/1");
        out_.raw("\" destination=\"");
        out_.raw(property.destination);
        out_.raw("\" idrefs=\"");
        out_.raw(member.references);
        out_.raw("\"/>\n");
        return;
    }
    const auto content =
        member.node.first_child() ? fragment_.content(member.node) : std::string_view(member.node.value());
    begin("<attribute name=\"");
    out_.raw(typeName(property.type));
    out_.raw(content.empty() ? "\"/>\n" : "\">");
    if (content.empty())
        return;
    out_.raw(content);
    out_.raw("</attribute>\n");
}

void ObjectMigration::writeNumber(const std::string& name, std::int32_t number)
{
    out_.raw("        <attribute name=\"");
    out_.raw(name);
    out_.raw(R"(" type="int32">)");
    out_.number(number);
    out_.raw("</attribute>\n");
}

} // namespace lineara::store
