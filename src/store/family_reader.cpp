#include "family_reader.h"

#include "info_reader.h"
#include "record_reader.h"

namespace lineara::store {

namespace {

constexpr const char* rootName = "database";
constexpr const char* infoName = "databaseInfo";

bool isText(pugi::xml_node node)
{
    return node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata;
}

/// The one "databaseInfo" of the file.
Outcome<pugi::xml_node> findInfo(const XmlSource& source)
{
    const auto root = source.root();
    if (std::string_view(root.name()) != rootName)
        return Failure{u"line %1: its root element is %2 instead of “database”."_qs.arg(source.line(root))
                           .arg(shown(root.name()))};
    const auto info = root.child(infoName);
    if (!info)
        return Failure{u"line %1: “databaseInfo” is missing."_qs.arg(source.line(root))};
    if (const auto second = info.next_sibling(infoName))
        return Failure{u"line %1: a second “databaseInfo”."_qs.arg(source.line(second))};
    return info;
}

void reportLosses(const XmlSource& source, pugi::xml_node info, QStringList& repairs)
{
    if (source.hasContentOutsideRoot())
        repairs += u"Comments outside the “database” element are left out when the file is saved."_qs;
    if (source.root().first_attribute() || info.first_attribute())
        repairs += u"Attributes of “database” and “databaseInfo” are left out when the file is saved."_qs;
}

Outcome<Done> readObjects(const XmlSource& source, RawFamily& family, QStringList& repairs)
{
    RecordReader records(source, family, repairs);
    std::uint32_t position = 0;
    for (auto node = source.root().first_child(); node; node = node.next_sibling()) {
        const std::string_view name = node.name();
        if (name == infoName)
            continue;
        if (isText(node))
            return Failure{u"line %1: stray text between the objects."_qs.arg(source.line(node))};
        if (node.type() != pugi::node_element || name != "object")
            family.unknownObjects.push_back({position, source.verbatim(node)});
        else if (!records.read(node, position))
            return Failure{records.failure()};
        ++position;
    }
    return Done{};
}

} // namespace

Outcome<RawFamily> readTree(const XmlSource& source, QStringList& repairs)
{
    const auto info = findInfo(source);
    if (info.failed())
        return info.failure();
    RawFamily family;
    if (auto read = readInfo(source, info.value(), family, repairs); read.failed())
        return read.failure();
    reportLosses(source, info.value(), repairs);
    if (std::string_view(source.root().value()).find_first_not_of(" \t\r\n") != std::string_view::npos)
        return Failure{u"line %1: stray text in “database”."_qs.arg(source.line(source.root()))};
    if (auto read = readObjects(source, family, repairs); read.failed())
        return read.failure();
    return family;
}

} // namespace lineara::store
