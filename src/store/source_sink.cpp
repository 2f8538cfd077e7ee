#include "source_sink.h"

#include "field_names.h"
#include "written_members.h"

namespace lineara::store {

namespace {

enum SourceSlot : std::size_t
{
    OriginSlot,
    LineSlot,
    TextSlot,
    DanglingSlot,
    PictureSlot,
    PictureHashSlot,
    OwnerSlot,
    SourceSlotCount
};

/// The start tags of all members as the writer writes them, in its order.
const std::array<std::string, SourceSlotCount>& writtenSourceTags()
{
    static const std::array<std::string, SourceSlotCount> tags{
        parsedTag(R"(attribute name="origin" type="string">)"),
        parsedTag(R"(attribute name="line" type="int32">)"),
        parsedTag(R"(attribute name="text" type="string">)"),
        parsedTag(R"(attribute name="dangling" type="string">)"),
        parsedTag(R"(attribute name="picture" type="string">)"),
        parsedTag(R"(attribute name="pictureHash" type="string">)"),
        parsedTag(R"(relationship name="person" type="0/1" destination="PERSON" idrefs=")")};
    return tags;
}

std::optional<QByteArray> utf8Of(const std::optional<QString>& text)
{
    return text ? std::optional(text->toUtf8()) : std::nullopt;
}

} // namespace

bool SourceSink::takeAsWritten(pugi::xml_node node)
{
    return written_.take(writtenSourceTags(), node,
                         [this](std::size_t slot, std::string_view rest) { return takeWritten(slot, rest); });
}

bool SourceSink::takeWritten(std::size_t slot, std::string_view rest)
{
    std::optional<QString> file;
    std::optional<std::int32_t> line;
    switch (slot) {
    case OriginSlot:
        if (takeWrittenText(file, rest))
            setOrigin(*file);
        return file.has_value();
    case LineSlot:
        if (takeWrittenNumber(line, rest))
            source_.origin.line = *line;
        return line.has_value();
    case TextSlot:
        return takeWrittenUtf8(source_.text, rest);
    case DanglingSlot:
        return takeWrittenUtf8(source_.origin.dangling, rest);
    case PictureSlot:
        if (takeWrittenText(file, rest))
            takenPicture().file = *file;
        return file.has_value();
    case PictureHashSlot:
        return takeWrittenUtf8(takenPicture().hash, rest);
    default:
        return takeWrittenReference(source_.person, rest);
    }
}

void SourceSink::setOrigin(const QString& file)
{
    source_.origin.file = file == lastOrigin_ ? lastOrigin_ : file;
}

TakenPicture& SourceSink::takenPicture()
{
    if (!source_.takenPicture)
        source_.takenPicture = std::make_shared<TakenPicture>();
    return *source_.takenPicture;
}

MemberSink::Verdict SourceSink::attribute(const Member& member)
{
    if (member.name == "origin") {
        auto file = once_.admit(OriginSlot, member) ? members_.text(member) : std::nullopt;
        if (!file)
            return Verdict::Failed;
        setOrigin(*file);
        return Verdict::Taken;
    }
    if (member.name == "line")
        return once_.admit(LineSlot, member) ? store(members_.int32(member), source_.origin.line) : Verdict::Failed;
    if (member.name == "text")
        return once_.admit(TextSlot, member) ? store(utf8Of(members_.text(member)), source_.text) : Verdict::Failed;
    if (member.name == "dangling") {
        const auto pointers = once_.admit(DanglingSlot, member) ? members_.text(member) : std::nullopt;
        if (!pointers)
            return Verdict::Failed;
        // None is not the same as nobody knows.
        source_.origin.dangling = pointers->isEmpty() ? QByteArray("") : pointers->toUtf8();
        return Verdict::Taken;
    }
    if (member.name == "picture")
        return once_.admit(PictureSlot, member) ? store(members_.text(member), takenPicture().file) : Verdict::Failed;
    if (member.name == "pictureHash") {
        const auto admitted = once_.admit(PictureHashSlot, member);
        return admitted ? store(utf8Of(members_.text(member)), takenPicture().hash) : Verdict::Failed;
    }
    return Verdict::Unknown;
}

MemberSink::Verdict SourceSink::relationship(const Member& member)
{
    if (member.name != "person")
        return Verdict::Unknown;
    const auto admitted = once_.admit(OwnerSlot, member);
    return admitted ? store(members_.reference(member, personEntity), source_.person) : Verdict::Failed;
}

} // namespace lineara::store
