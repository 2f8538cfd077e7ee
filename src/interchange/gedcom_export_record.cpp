#include "gedcom_export_record.h"

#include "gedcom_tree.h"

#include <algorithm>

namespace lineara {

EditedRecord::EditedRecord(std::string_view text, GedcomDialect dialect) : dialect_(dialect)
{
    while (!text.empty()) {
        const auto length = std::min(text.find('\n'), text.size());
        const auto raw = text.substr(0, length);
        Entry entry{raw, GedcomLineReader(raw).next().value_or(GedcomLine{}), false};
        if (entry.read.defect != LineDefect::None)
            entry.read.level.reset();
        lines_.push_back(entry);
        text.remove_prefix(std::min(length + 1, text.size()));
    }
}

EditedRecord::Line EditedRecord::end(Line line) const
{
    const int level = lines_[line].read.level.value_or(0);
    Line at = line + 1;
    while (at < lines_.size() && (!lines_[at].read.level || *lines_[at].read.level > level))
        ++at;
    return at;
}

std::vector<EditedRecord::Line> EditedRecord::children(Line parent, std::string_view tag) const
{
    std::vector<Line> found;
    const int level = lines_[parent].read.level.value_or(0) + 1;
    const Line last = end(parent);
    for (Line at = parent + 1; at < last; ++at) {
        const Entry& entry = lines_[at];
        if (!entry.isStruck && entry.read.level == level && (tag.empty() || entry.read.tag == tag))
            found.push_back(at);
    }
    return found;
}

std::optional<EditedRecord::Line> EditedRecord::child(Line parent, std::string_view tag) const
{
    const auto found = children(parent, tag);
    return found.empty() ? std::nullopt : std::optional(found.front());
}

QString EditedRecord::text(Line line) const
{
    // As a record of its own the line would skip the levels above it.
    std::string text;
    const int level = lines_[line].read.level.value_or(0);
    const Line last = end(line);
    for (Line at = line; at < last; ++at) {
        const GedcomLine& read = lines_[at].read;
        if (read.level && *read.level <= level + 1)
            text += shifted(at, at + 1, -level);
    }
    GedcomRecord record;
    record.text = text;
    return GedcomTree(record, dialect_ == GedcomDialect::Seven).text(0);
}

std::string EditedRecord::shifted(Line begin, Line end, int levels) const
{
    constexpr std::string_view digits = "0123456789";
    std::string out;
    for (Line at = begin; at < end; ++at) {
        const Entry& entry = lines_[at];
        std::string_view raw = entry.raw;
        if (entry.read.level && levels != 0) {
            out += std::to_string(*entry.read.level + levels);
            raw.remove_prefix(raw.find_first_not_of(digits, raw.find_first_of(digits)));
        }
        out.append(raw).append(1, '\n');
    }
    return out;
}

void EditedRecord::strike(Line line)
{
    isChanged_ = true;
    const Line last = end(line);
    for (Line at = line; at < last; ++at)
        lines_[at].isStruck = true;
}

void EditedRecord::strikeAlone(Line line)
{
    isChanged_ = true;
    lines_[line].isStruck = true;
}

void EditedRecord::strikeContinuations(Line line)
{
    for (const Line child : children(line)) {
        if (isContinuation(lines_[child].read.tag))
            strike(child);
    }
}

void EditedRecord::replace(Line line, std::string lines)
{
    isChanged_ = true;
    strikeContinuations(line);
    replaced_[line] = std::move(lines);
}

void EditedRecord::rename(Line line, std::string_view tag)
{
    isChanged_ = true;
    const Entry& entry = lines_[line];
    const auto at = static_cast<std::size_t>(entry.read.tag.data() - entry.raw.data());
    std::string renamed(entry.raw.substr(0, at));
    renamed.append(tag).append(entry.raw.substr(at + entry.read.tag.size())).append(1, '\n');
    replaced_[line] = std::move(renamed);
}

void EditedRecord::insert(Line before, std::string_view lines)
{
    isChanged_ = true;
    inserted_[before] += lines;
}

std::string EditedRecord::result() const
{
    std::string out;
    for (Line at = 0; at <= lines_.size(); ++at) {
        if (const auto added = inserted_.find(at); added != inserted_.end())
            out += added->second;
        if (at == lines_.size() || lines_[at].isStruck)
            continue;
        if (const auto other = replaced_.find(at); other != replaced_.end()) {
            out += other->second;
        } else {
            out += lines_[at].raw;
            out += '\n';
        }
    }
    return out;
}

} // namespace lineara
