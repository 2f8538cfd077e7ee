#include "family_migration.h"

#include "field_names.h"
#include "file_bytes.h"
#include "info_parts.h"
#include "markup_scan.h"
#include "object_migration.h"
#include "store_texts.h"
#include "xml_file.h"

namespace lineara::store {

namespace {

/// Takes the children of the root one by one, and writes what becomes of each on lines of its own.
class ChildMigration
{
public:
    ChildMigration(const XmlFragment& fragment, const MigrationPlan& plan, XmlWriter& out)
        : fragment_(fragment), plan_(plan), out_(out), objects_(fragment, plan, out)
    {}

    /// Takes what the fragment holds now.
    Outcome<Done> write()
    {
        for (auto node = fragment_.top().first_child(); node; node = node.next_sibling()) {
            if (auto written = write(node); written.failed())
                return written;
        }
        return Done{};
    }

    Outcome<Done> finish()
    {
        if (!hasInfo_)
            return Failure{StoreTexts::tr("“databaseInfo” is missing.")};
        return objects_.finish();
    }

private:
    Outcome<Done> write(pugi::xml_node node)
    {
        if (isElement(node, infoName))
            return writeInfo(node);
        if (node.type() == pugi::node_element && !hasInfo_)
            return Failure{
                StoreTexts::tr("line %1: “databaseInfo” is missing at the beginning.").arg(fragment_.line(node))};
        if (isElement(node, "object"))
            return objects_.write(node) ? Outcome<Done>(Done{}) : Failure{objects_.failure()};
        const bool canBeKept =
            node.type() == pugi::node_element || node.type() == pugi::node_comment || node.type() == pugi::node_pi;
        if (!canBeKept)
            return Failure{StoreTexts::tr("stray text or a stray declaration stands between the objects.")};
        writeLine("    ", fragment_.verbatim(node));
        return Done{};
    }

    Outcome<Done> writeInfo(pugi::xml_node info)
    {
        if (hasInfo_)
            return Failure{StoreTexts::tr("line %1: a second “databaseInfo”.").arg(fragment_.line(info))};
        hasInfo_ = true;
        const auto parts = InfoParts::read(fragment_, info, [](pugi::xml_node, std::uint32_t) {});
        if (parts.failed())
            return parts.failure();
        const auto metadata = parts.value().metadata();
        if (metadata.failed())
            return metadata.failure();
        if (metadata.value().modelVersion != plan_.sourceVersion())
            return Failure{StoreTexts::tr("it has the data model version %1 instead of %2.")
                               .arg(metadata.value().modelVersion)
                               .arg(plan_.sourceVersion())};
        const auto xml = fragment_.verbatim(info);
        writeLine("    ", xml.left(static_cast<qsizetype>(
                              markupEnd({xml.constData(), static_cast<std::size_t>(xml.size())}, 0))));
        for (const auto part : info.children())
            writeInfoPart(part);
        out_.raw("    </databaseInfo>\n");
        return Done{};
    }

    void writeInfoPart(pugi::xml_node part)
    {
        if (partOf(part) != InfoPart::ModelVersion)
            return writeLine("        ", fragment_.verbatim(part));
        out_.raw("        <metadata key=\"modelVersion\">");
        out_.number(plan_.destinationVersion());
        out_.raw("</metadata>\n");
    }

    void writeLine(std::string_view indent, const QByteArray& xml)
    {
        out_.raw(indent);
        out_.raw({xml.constData(), static_cast<std::size_t>(xml.size())});
        out_.raw("\n");
    }

    const XmlFragment& fragment_;
    const MigrationPlan& plan_;
    XmlWriter& out_;
    ObjectMigration objects_;
    bool hasInfo_ = false;
};

} // namespace

Outcome<Done> migrateText(std::string_view text, const MigrationPlan& plan, XmlWriter& out, const Progress& progress)
{
    auto file = XmlFile::open(text, rootName);
    if (file.failed())
        return file.failure();
    out.raw(file.value().beginning());
    out.raw("\n");
    XmlFragment fragment(text);
    ChildMigration children(fragment, plan, out);
    for (;;) {
        const auto more = file.value().next(fragment);
        if (more.failed())
            return more.failure();
        if (!more.value())
            break;
        if (auto written = children.write(); written.failed())
            return written;
        if (!progress.goesOn(file.value().partRead()))
            return stoppedReading();
    }
    out.raw(file.value().ending());
    return children.finish();
}

} // namespace lineara::store
