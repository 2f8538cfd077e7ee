#include "gedcom_export_objects.h"

#include "gedcom_export_record.h"
#include "gedcom_pointer.h"
#include "gedcom_tree.h"

#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <deque>
#include <vector>

namespace lineara {
namespace {

using Line = EditedRecord::Line;

struct Format
{
    const char* word;
    const char* mediaType;
};

/// Of several words for one type the first is what 5.5.1 says. What no picture is by its word is none by its type.
constexpr std::array<Format, 22> formats = {
    {{"jpg", "image/jpeg"},      {"jpeg", "image/jpeg"},     {"png", "image/png"},       {"gif", "image/gif"},
     {"bmp", "image/bmp"},       {"tif", "image/tiff"},      {"tiff", "image/tiff"},     {"webp", "image/webp"},
     {"photo", "image/x-photo"}, {"wav", "audio/wav"},       {"mp3", "audio/mpeg"},      {"aiff", "audio/aiff"},
     {"mpg", "video/mpeg"},      {"mpeg", "video/mpeg"},     {"mp4", "video/mp4"},       {"mov", "video/quicktime"},
     {"avi", "video/x-msvideo"}, {"pdf", "application/pdf"}, {"rtf", "application/rtf"}, {"doc", "application/msword"},
     {"txt", "text/plain"},      {"htm", "text/html"}}};
constexpr const char* unknownType = "application/octet-stream";
constexpr QLatin1String otherTypes("application/x-");

std::optional<QString> knownType(const QString& word)
{
    const auto format =
        std::ranges::find_if(formats, [&](const Format& one) { return word == QLatin1String(one.word); });
    return format == formats.end() ? std::nullopt : std::optional(QString::fromLatin1(format->mediaType));
}

QString typeByName(const QString& file)
{
    return knownType(QFileInfo(file).suffix().toLower()).value_or(QString::fromLatin1(unknownType));
}

/// The media type that a format of 5.5.1 means; no value where its words can be none.
std::optional<QString> mediaTypeOf(const QString& format, const QString& file)
{
    static const QRegularExpression token(QStringLiteral("^[a-z0-9][a-z0-9.+_-]*$"));
    const QString word = format.trimmed().toLower();
    if (word.isEmpty())
        return typeByName(file);
    if (word.contains(u'/'))
        return format.trimmed();
    if (auto known = knownType(word))
        return known;
    return token.match(word).hasMatch() ? std::optional(QString(otherTypes + word)) : std::nullopt;
}

QString formatOf(const QString& mediaType)
{
    const QString type = mediaType.trimmed().toLower();
    const auto format =
        std::ranges::find_if(formats, [&](const Format& one) { return type == QLatin1String(one.mediaType); });
    if (format != formats.end())
        return QString::fromLatin1(format->word);
    return type.startsWith(otherTypes) ? type.sliced(otherTypes.size()) : mediaType;
}

std::string formLine(const QString& mediaType)
{
    return gedcomLines(2, "FORM", mediaType, GedcomDialect::Five);
}

/// Gives each file of an object's record what 5.5.1 says of it elsewhere.
class ObjectRecord
{
public:
    explicit ObjectRecord(std::string_view text) : lines_(text, GedcomDialect::Five) {}

    std::string inSeven()
    {
        moveBelowFiles();
        // 7.0 has no place for these.
        for (const std::string_view tag : {"FORM", "TITL", "BLOB", "OBJE"}) {
            for (const Line line : lines_.children(0, tag))
                lines_.rename(line, '_' + std::string(tag));
        }
        return lines_.result();
    }

private:
    void moveBelowFiles()
    {
        const auto format = lines_.child(0, "FORM");
        const auto title = lines_.child(0, "TITL");
        bool isFormatMoved = false;
        bool isTitleMoved = false;
        for (const Line file : lines_.children(0, "FILE")) {
            const bool takesTitle = title && !isTitleMoved && !lines_.child(file, "TITL");
            const bool takesFormat = format && !lines_.child(file, "FORM");
            lines_.insert(lines_.end(file), formatBelow(file, format) + (takesTitle ? movedDown(*title) : ""));
            isTitleMoved = isTitleMoved || takesTitle;
            isFormatMoved = isFormatMoved || takesFormat;
        }
        if (lines_.children(0, "FILE").empty()) {
            const std::string form = format ? movedFormat(*format, {}) : formLine(QString::fromLatin1(unknownType));
            lines_.insert(lines_.size(), "1 FILE\n" + form + (title ? movedDown(*title) : ""));
            isFormatMoved = isTitleMoved = true;
        }
        if (format && isFormatMoved)
            lines_.strike(*format);
        if (title && isTitleMoved)
            lines_.strike(*title);
    }

    /// The lines below a file's format, at level 3, with what 5.5.1 calls its TYPE.
    static std::string withMedium(const std::string& details)
    {
        const std::string text = "2 FORM\n" + details;
        EditedRecord format(text, GedcomDialect::Five);
        for (const Line medium : format.children(0, "TYPE"))
            format.rename(medium, "MEDI");
        return format.result().substr(text.size() - details.size());
    }

    std::string movedDown(Line line) const { return lines_.shifted(line, lines_.end(line), 1); }

    /// Lines to add below the file.
    std::string formatBelow(Line file, std::optional<Line> common)
    {
        const QString name = lines_.text(file).trimmed();
        const auto own = lines_.child(file, "FORM");
        if (!own)
            return common ? movedFormat(*common, name) : formLine(typeByName(name));
        for (const Line medium : lines_.children(*own, "TYPE"))
            lines_.rename(medium, "MEDI");
        for (const Line further : lines_.children(file, "FORM"))
            if (further != *own)
                lines_.rename(further, "_FORM");
        if (const auto type = mediaTypeOf(lines_.text(*own), name)) {
            lines_.replace(*own, formLine(*type));
            return {};
        }
        lines_.rename(*own, "_FORM");
        return formLine(typeByName(name));
    }

    /// The format of the object as that of a file.
    std::string movedFormat(Line format, const QString& file) const
    {
        const QString text = lines_.text(format);
        const auto type = mediaTypeOf(text, file);
        std::string moved = formLine(type.value_or(typeByName(file)));
        if (!type)
            moved += gedcomLines(2, "_FORM", text, GedcomDialect::Five);
        Line below = format + 1;
        const Line end = lines_.end(format);
        while (below < end && isContinuation(lines_[below].tag))
            ++below;
        return moved + withMedium(lines_.shifted(below, end, 1));
    }

    EditedRecord lines_;
};

/// What stays where an object stood, and what becomes of the rest.
struct PartedObject
{
    std::string link;   ///< lines below the pointer
    std::string record; ///< lines of the record; empty if there is nothing to say
};

PartedObject partsOf(const EditedRecord& lines, Line object)
{
    PartedObject parts;
    const int level = lines[object].level.value_or(0);
    const QString text = lines.text(object);
    if (!text.trimmed().isEmpty())
        parts.record = gedcomLines(1, "NOTE", text, lines.dialect());
    bool isOfLink = false;
    const Line end = lines.end(object);
    for (Line line = object + 1; line < end; ++line) {
        const std::string_view tag = lines[line].tag;
        if (lines[line].level == level + 1) {
            isOfLink = tag.starts_with('_') || tag == "CROP";
            if (isContinuation(tag))
                continue;
        }
        (isOfLink ? parts.link : parts.record) += lines.shifted(line, line + 1, isOfLink ? 0 : -level);
    }
    return parts;
}

bool isObjectRecord(const EditedRecord& lines)
{
    return lines.size() > 0 && lines[0].level == 0 && lines[0].tag == "OBJE";
}

} // namespace

std::string ObjectsInSeven::of(std::string_view record) const
{
    std::string out;
    std::deque<std::string> records{std::string(record)};
    for (; !records.empty(); records.pop_front()) {
        EditedRecord lines(records.front(), GedcomDialect::Five);
        for (Line line = 1; line < lines.size(); ++line) {
            const bool isObject = lines[line].level && lines[line].tag == "OBJE" && !lines[line].isPointer;
            if (isObject && !lines.isStruck(line))
                records.push_back(takenOut(lines, line));
        }
        out += isObjectRecord(lines) ? ObjectRecord(lines.result()).inSeven() : lines.result();
    }
    return out;
}

std::string ObjectsInSeven::takenOut(EditedRecord& lines, std::size_t object) const
{
    const PartedObject parts = partsOf(lines, object);
    const bool saysNothing = parts.record.empty();
    const std::string xref = saysNothing ? std::string(pointsAtNobody) : nextXref_();
    const std::string pointer = gedcomPointer(*lines[object].level, "OBJE", xref);
    lines.strike(object);
    lines.insert(object, pointer + parts.link);
    return saysNothing ? std::string() : gedcomRecord(xref, "OBJE") + parts.record;
}

std::string objectInFive(std::string_view record)
{
    EditedRecord lines(record, GedcomDialect::Five);
    if (!isObjectRecord(lines))
        return std::string(record);
    for (const Line file : lines.children(0, "FILE")) {
        for (const Line form : lines.children(file, "FORM")) {
            lines.replace(form, gedcomLines(2, "FORM", formatOf(lines.text(form)), GedcomDialect::Five));
            for (const Line medium : lines.children(form, "MEDI"))
                lines.rename(medium, "TYPE");
        }
    }
    return lines.result();
}

} // namespace lineara
