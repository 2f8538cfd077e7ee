#include "family_writer.h"

#include "field_names.h"
#include "store/family_content.h"
#include "store/family_file.h"

#include <limits>

namespace lineara::store {

namespace {

/// Puts unknown elements back between their siblings. Siblings beyond the last known one end the list.
class Interleaving
{
public:
    Interleaving(XmlWriter& out, std::span<const UnknownElement> unknown, std::string_view indent)
        : out_(out), unknown_(unknown), indent_(indent)
    {}

    /// Called before each known element.
    void next()
    {
        while (!unknown_.empty() && unknown_.front().position <= position_)
            writeUnknown();
        ++position_;
    }

    /// Called after the last known element.
    void end()
    {
        while (!unknown_.empty())
            writeUnknown();
    }

private:
    void writeUnknown()
    {
        const auto& xml = unknown_.front().xml;
        out_.raw(indent_);
        out_.raw({xml.constData(), static_cast<std::size_t>(xml.size())});
        out_.raw("\n");
        unknown_ = unknown_.subspan(1);
        ++position_;
    }

    XmlWriter& out_;
    std::span<const UnknownElement> unknown_;
    std::string_view indent_;
    std::uint32_t position_ = 0;
};

/// Writes one object element, member by member; begun by the constructor and ended by the destructor.
class ObjectElement
{
public:
    ObjectElement(XmlWriter& out, std::string_view entity, RecordId id, std::span<const UnknownElement> unknown)
        : out_(out), siblings_(out, unknown, memberIndent)
    {
        out_.raw("    <object type=\"");
        out_.raw(entity);
        out_.raw("\" id=\"");
        reference(id);
        out_.raw("\">\n");
    }

    ~ObjectElement()
    {
        siblings_.end();
        out_.raw("    </object>\n");
    }

    ObjectElement(const ObjectElement&) = delete;
    ObjectElement& operator=(const ObjectElement&) = delete;

    void text(std::string_view name, const std::optional<QString>& value)
    {
        if (!value)
            return;
        beginAttribute(name, "string", value->isEmpty());
        if (value->isEmpty())
            return;
        out_.text(*value);
        endAttribute();
    }

    void utf8(std::string_view name, const QByteArray& value)
    {
        beginAttribute(name, "string", value.isEmpty());
        if (value.isEmpty())
            return;
        out_.utf8({value.constData(), static_cast<std::size_t>(value.size())});
        endAttribute();
    }

    void number(std::string_view name, std::optional<std::int32_t> value)
    {
        if (!value)
            return;
        beginAttribute(name, "int32", false);
        out_.number(*value);
        endAttribute();
    }

    void binary(std::string_view name, const QByteArray& value)
    {
        beginAttribute(name, "binary", value.isEmpty());
        if (value.isEmpty())
            return;
        // A multiple of 3, so that no piece but the last needs filling up.
        constexpr qsizetype pieceSize = 3 * 16 * 1024;
        for (qsizetype at = 0; at < value.size(); at += pieceSize) {
            const auto piece = QByteArray::fromRawData(value.constData() + at, std::min(pieceSize, value.size() - at));
            const auto encoded = piece.toBase64();
            out_.raw({encoded.constData(), static_cast<std::size_t>(encoded.size())});
        }
        endAttribute();
    }

    /// A list of ids, or of whatever has one.
    template<class Item>
    void toMany(std::string_view name, std::string_view entity, std::span<const Item> items)
    {
        if (items.empty())
            return;
        beginRelationship(name, "0/0", entity);
        std::string_view separator;
        for (const auto& item : items) {
            out_.raw(separator);
            reference(idOf(item));
            separator = " ";
        }
        out_.raw("\"/>\n");
    }

    void toOne(std::string_view name, std::string_view entity, std::optional<RecordId> record)
    {
        if (!record)
            return;
        beginRelationship(name, "0/1", entity);
        reference(*record);
        out_.raw("\"/>\n");
    }

private:
    static RecordId idOf(RecordId id) { return id; }
    static RecordId idOf(const FamilyContent::PersonPart& person) { return person.id; }

    void reference(RecordId id)
    {
        out_.raw("z");
        out_.number(static_cast<std::int64_t>(id.number));
    }

    void beginAttribute(std::string_view name, std::string_view type, bool isEmpty)
    {
        siblings_.next();
        out_.raw("        <attribute name=\"");
        out_.raw(name);
        out_.raw("\" type=\"");
        out_.raw(type);
        out_.raw(isEmpty ? "\"/>\n" : "\">");
    }

    void endAttribute() { out_.raw("</attribute>\n"); }

    void beginRelationship(std::string_view name, std::string_view type, std::string_view entity)
    {
        siblings_.next();
        out_.raw("        <relationship name=\"");
        out_.raw(name);
        out_.raw("\" type=\"");
        out_.raw(type);
        out_.raw("\" destination=\"");
        out_.raw(entity);
        out_.raw("\" idrefs=\"");
    }

    XmlWriter& out_;
    Interleaving siblings_;
};

/// Writes the parts of the file in their order.
class FamilyWriter
{
public:
    FamilyWriter(XmlWriter& out, const FamilyContent& family)
        : out_(out), family_(family), objects_(out, family.unknownObjects(), objectIndent)
    {}

    void write()
    {
        out_.raw("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<database>\n");
        writeInfo();
        for (std::size_t pool = 0; pool < family_.pools().size(); ++pool)
            writePool(pool);
        for (std::size_t pool = 0; pool < family_.pools().size(); ++pool)
            writePersons(family_.personsOf(pool), family_.pools()[pool].id);
        writePersons(family_.strangers(), std::nullopt);
        for (const auto& pic : family_.pics())
            writePic(pic);
        for (const auto& source : family_.sources())
            writeSource(source);
        objects_.end();
        out_.raw("</database>\n");
    }

private:
    void writeInfo()
    {
        Interleaving parts(out_, family_.unknownInfo(), memberIndent);
        out_.raw("    <databaseInfo>\n");
        parts.next();
        out_.raw("        <formatVersion>");
        out_.number(currentFormatVersion);
        out_.raw("</formatVersion>\n");
        parts.next();
        out_.raw("        <UUID>");
        out_.text(family_.storeUuid().toString(QUuid::WithoutBraces));
        out_.raw("</UUID>\n");
        parts.next();
        out_.raw("        <nextObject>");
        out_.number(static_cast<std::int64_t>(family_.nextNumber()));
        out_.raw("</nextObject>\n");
        parts.next();
        out_.raw("        <metadata key=\"modelVersion\">");
        out_.number(currentModelVersion);
        out_.raw("</metadata>\n");
        parts.end();
        out_.raw("    </databaseInfo>\n");
    }

    void writePool(std::size_t at)
    {
        objects_.next();
        const auto& pool = family_.pools()[at];
        ObjectElement object(out_, poolEntity, pool.id, pool.unknown);
        object.toMany("persons", personEntity, family_.personsOf(at));
    }

    void writePersons(std::span<const FamilyContent::PersonPart> persons, std::optional<RecordId> pool)
    {
        for (const auto& person : persons)
            writePerson(person, pool);
    }

    void writePerson(const FamilyContent::PersonPart& person, std::optional<RecordId> pool)
    {
        objects_.next();
        ObjectElement object(out_, personEntity, person.id, family_.unknownOf(persons_));
        const auto values = person.values.unpacked();
        for (const auto& field : personTexts)
            object.text(field.name, values.*field.value);
        for (const auto& field : personNumbers)
            object.number(field.name, values.*field.value);
        const auto links = family_.linksOf(persons_);
        object.toMany("parents", personEntity, links.parents);
        object.toMany("children", personEntity, links.children);
        object.toMany("partners", personEntity, links.partners);
        object.toOne("pool", poolEntity, pool);
        object.toOne("pic", picEntity, person.pic);
        object.toOne("sourceRecord", sourceEntity, person.source);
        ++persons_;
    }

    void writePic(const FamilyContent::PicPart& pic)
    {
        objects_.next();
        ObjectElement object(out_, picEntity, pic.id, pic.unknown);
        if (pic.data)
            object.binary("data", *pic.data);
        object.toOne("person", personEntity, pic.person);
    }

    void writeSource(const FamilyContent::SourcePart& source)
    {
        objects_.next();
        ObjectElement object(out_, sourceEntity, source.id, source.unknown);
        object.text("origin", source.origin.file);
        object.number("line", source.origin.line);
        object.utf8("text", source.text);
        if (!source.origin.dangling.isNull())
            object.utf8("dangling", source.origin.dangling);
        if (source.takenPicture) {
            object.text("picture", source.takenPicture->file);
            if (!source.takenPicture->hash.isEmpty())
                object.utf8("pictureHash", source.takenPicture->hash);
        }
        object.toOne("person", personEntity, source.person);
    }

    XmlWriter& out_;
    const FamilyContent& family_;
    Interleaving objects_;
    std::size_t persons_ = 0; ///< written so far
};

} // namespace

bool writeFamilyText(const FamilyContent& family, ByteSink sink)
{
    XmlWriter out(std::move(sink));
    FamilyWriter(out, family).write();
    return out.finish();
}

} // namespace lineara::store
