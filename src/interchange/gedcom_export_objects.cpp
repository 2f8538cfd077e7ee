#include "gedcom_export_objects.h"

#include "file_addresses.h"
#include "gedcom_export_record.h"
#include "gedcom_pointer.h"
#include "gedcom_tree.h"
#include "kept_file_name.h"
#include "media_types.h"
#include "own_tags.h"

#include <algorithm>
#include <array>
#include <deque>
#include <optional>
#include <vector>

namespace lineara {
namespace {

using Line = EditedRecord::Line;

/// Bytes of the lines of an object's format that each of its files may get.
constexpr std::size_t mostRepeated = 255;

/// What 5.5.1 may say of a whole object, and 7.0 has no place for.
constexpr std::array<std::string_view, 4> tagsOfObjects = {"FORM", "TITL", "BLOB", "OBJE"};

std::string keptTagOf(std::string_view tag)
{
    return std::string(keptTagStart).append(tag);
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
        for (const std::string_view tag : tagsOfObjects) {
            for (const Line line : lines_.children(0, tag))
                lines_.rename(line, keptTagOf(tag));
        }
        return lines_.result();
    }

private:
    void moveBelowFiles()
    {
        const auto format = lines_.child(0, "FORM");
        const auto title = lines_.child(0, "TITL");
        // What is said at length once, as of thousands of files, is not said again of each.
        const bool isRepeated = format && lines_.shifted(*format, lines_.end(*format), 0).size() <= mostRepeated;
        const QString commonType = format && !isRepeated ? shortTypeOf(*format) : QString();
        bool isFormatMoved = false;
        bool isTitleMoved = false;
        for (const Line file : lines_.children(0, "FILE")) {
            giveAddress(file);
            const bool takesTitle = title && !isTitleMoved && !lines_.child(file, "TITL");
            const bool takesFormat = format && !lines_.child(file, "FORM");
            const bool takesAll = isRepeated || !isFormatMoved;
            lines_.insert(lines_.end(file),
                          formatBelow(file, format, commonType, takesAll) + (takesTitle ? movedDown(*title) : ""));
            isTitleMoved = isTitleMoved || takesTitle;
            isFormatMoved = isFormatMoved || takesFormat;
        }
        if (lines_.children(0, "FILE").empty()) {
            const std::string form = format ? movedFormat(*format, {}) : formLine(mediaTypeByName({}));
            lines_.insert(lines_.size(), "1 FILE\n" + form + (title ? movedDown(*title) : ""));
            isFormatMoved = isTitleMoved = true;
        }
        if (format && isFormatMoved)
            lines_.strike(*format);
        if (title && isTitleMoved)
            lines_.strike(*title);
    }

    /// Where the name can't be told from the address it is kept, unless it was when the address came into an archive.
    void giveAddress(Line file)
    {
        const QString name = lines_.text(file);
        const QString address = addressOfName(name);
        const bool isKept = address == name && keptFileName(lines_, file, address);
        const bool keepsName = !isKept && nameOfAddress(address) != name;
        if (lines_[file].isPointer || (address == name && !keepsName))
            return;
        lines_.replace(file, gedcomLines(1, "FILE", address, GedcomDialect::Five) +
                                 (keepsName ? gedcomLines(2, keptFileTag, name, GedcomDialect::Five) : ""));
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

    /// The media type that the format means for a file of that name; no value if it can be none.
    std::optional<QString> typeOf(Line format, const QString& file) const
    {
        return lines_[format].isPointer ? std::nullopt : mediaTypeOf(lines_.text(format), file);
    }

    /// The media type that the format says for any file; empty if it says none.
    QString shortTypeOf(Line format) const
    {
        const bool saysOne = !lines_.text(format).trimmed().isEmpty();
        const QString type = saysOne ? typeOf(format, {}).value_or(QString()) : QString();
        return type.size() <= static_cast<qsizetype>(mostRepeated) ? type : QString();
    }

    /// Lines to add below the file. Of the common format it takes all, or but the type. Words that can be no media type
    /// are kept ahead of one that is made for them.
    std::string formatBelow(Line file, std::optional<Line> common, const QString& commonType, bool takesAll)
    {
        const QString name = lines_.text(file).trimmed();
        const auto own = lines_.child(file, "FORM");
        if (!own && common && takesAll)
            return movedFormat(*common, name);
        if (!own)
            return formLine(commonType.isEmpty() ? mediaTypeByName(name) : commonType);
        for (const Line medium : lines_.children(*own, "TYPE"))
            lines_.rename(medium, "MEDI");
        for (const Line further : lines_.children(file, "FORM"))
            if (further != *own)
                lines_.rename(further, keptFormatTag);
        if (const auto type = typeOf(*own, name)) {
            lines_.replace(*own, formLine(*type));
            return {};
        }
        lines_.rename(*own, keptFormatTag);
        return formLine(mediaTypeByName(name));
    }

    /// The format of the object as that of a file.
    std::string movedFormat(Line format, const QString& file) const
    {
        const auto type = typeOf(format, file);
        Line below = format + 1;
        const Line end = lines_.end(format);
        while (below < end && isContinuation(lines_[below].tag))
            ++below;
        const std::string details = withMedium(lines_.shifted(below, end, 1));
        return type ? formLine(*type) + details : keptFormat(format) + details + formLine(mediaTypeByName(file));
    }

    /// Without what stands below it.
    std::string keptFormat(Line format) const
    {
        return lines_[format].isPointer ? gedcomPointer(2, keptFormatTag, lines_[format].value)
                                        : gedcomLines(2, keptFormatTag, lines_.text(format), GedcomDialect::Five);
    }

    EditedRecord lines_;
};

/// What stays where an object stood, and what becomes of the rest.
struct PartedObject
{
    std::string link;   ///< lines below the pointer
    std::string record; ///< lines of the record
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

/// Whether there is nothing that a record would be needed for.
bool isOfNoFile(const EditedRecord& lines, Line object)
{
    const auto isOfFile = [&](Line line) {
        const std::string_view tag = lines[line].tag;
        return tag == "FILE" || tag == "FORM" || tag == "BLOB";
    };
    return lines.text(object).trimmed().isEmpty() && std::ranges::none_of(lines.children(object), isOfFile);
}

bool isObjectRecord(const EditedRecord& lines)
{
    return lines.size() > 0 && lines[0].level == 0 && lines[0].tag == "OBJE";
}

/// Whether the only format of a file was made for words that stand ahead of it: by the file's name, or by its address
/// when it came into an archive.
bool isMadeForWords(const EditedRecord& lines, Line file, const QString& name, const QString& address)
{
    const auto formats = lines.children(file, "FORM");
    const auto words = lines.child(file, keptFormatTag);
    const bool isAlone = formats.size() == 1 && lines.end(formats.front()) == formats.front() + 1;
    if (!words || !isAlone || formats.front() < *words)
        return false;
    const QString type = lines.text(formats.front());
    return type == mediaTypeByName(name.trimmed()) || type == mediaTypeByName(address);
}

/// Returns the name.
QString sayNameInFive(EditedRecord& lines, Line file, const QString& address)
{
    const auto kept = keptFileName(lines, file, address);
    QString name = kept ? lines.text(*kept) : nameOfAddress(address);
    if (kept)
        lines.strike(*kept);
    if (name != address && !lines[file].isPointer)
        lines.replace(file, gedcomLines(1, "FILE", name, GedcomDialect::Five));
    return name;
}

void sayMediumInFive(EditedRecord& lines, Line format)
{
    for (const Line medium : lines.children(format, "MEDI"))
        lines.rename(medium, "TYPE");
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
            if (!isObject || lines.isStruck(line))
                continue;
            if (std::string taken = takenOut(lines, line); !taken.empty())
                records.push_back(std::move(taken));
        }
        out += isObjectRecord(lines) ? ObjectRecord(lines.result()).inSeven() : lines.result();
    }
    return out;
}

std::string ObjectsInSeven::takenOut(EditedRecord& lines, std::size_t object) const
{
    const int level = lines[object].level.value_or(0);
    if (isOfNoFile(lines, object)) {
        lines.replace(object, gedcomPointer(level, "OBJE", pointsAtNobody));
        return {};
    }
    const PartedObject parts = partsOf(lines, object);
    const std::string xref = nextXref_();
    lines.strike(object);
    lines.insert(object, gedcomPointer(level, "OBJE", xref) + parts.link);
    return gedcomRecord(xref, "OBJE") + parts.record;
}

std::string objectInFive(std::string_view record)
{
    EditedRecord lines(record, GedcomDialect::Five);
    if (!isObjectRecord(lines))
        return std::string(record);
    for (const Line file : lines.children(0, "FILE")) {
        const QString address = lines.text(file);
        const QString name = sayNameInFive(lines, file, address);
        const bool isMade = isMadeForWords(lines, file, name, address);
        for (const Line form : lines.children(file, "FORM")) {
            if (isMade) {
                lines.strike(form);
                continue;
            }
            lines.replace(form, gedcomLines(2, "FORM", formatOf(lines.text(form)), GedcomDialect::Five));
            sayMediumInFive(lines, form);
        }
        for (const Line words : lines.children(file, keptFormatTag)) {
            lines.rename(words, "FORM");
            sayMediumInFive(lines, words);
        }
    }
    for (const std::string_view tag : tagsOfObjects) {
        for (const Line line : lines.children(0, keptTagOf(tag)))
            lines.rename(line, tag);
    }
    return lines.result();
}

} // namespace lineara
