#include "gedcom_tree.h"

#include "import_notes.h"
#include "import_texts.h"

#include <QStringBuilder>

namespace lineara {
namespace {

constexpr std::string_view joinedTag = "CONC";
constexpr std::string_view newLineTag = "CONT";

QString reason(LineDefect defect)
{
    switch (defect) {
    case LineDefect::NoLevel:
        return ImportTexts::tr("it does not start with a level");
    case LineDefect::UnterminatedXref:
        return ImportTexts::tr("its cross-reference has no closing @");
    case LineDefect::NoTag:
        return ImportTexts::tr("it has no tag");
    case LineDefect::None:
        break;
    }
    return {};
}

QString withTag(const GedcomLine& line)
{
    const auto tag = QString::fromUtf8(line.tag.data(), static_cast<qsizetype>(line.tag.size()));
    return line.value.empty() ? tag : QString(tag % u' ' % inQuotes(line.value));
}

} // namespace

bool isContinuation(std::string_view tag)
{
    return tag == joinedTag || tag == newLineTag;
}

/// Puts line after line where its level says, and tells about those that have no place.
class GedcomTree::Builder
{
public:
    Builder(GedcomTree& tree, ImportNotes& notes) : tree_(tree), notes_(notes) {}

    void add(const GedcomLine& line)
    {
        if (line.defect != LineDefect::None)
            addUnreadable(line);
        else if (orphaned_ && *line.level > orphaned_->level)
            notes_.notTaken(line.number, ImportTexts::tr("%1 was not taken: it belongs to line %2, which was not taken")
                                             .arg(withTag(line))
                                             .arg(orphaned_->line));
        else if (*line.level > open_.size())
            addSkipping(line);
        else
            addNode(line);
    }

    void finish() { close(0); }

private:
    struct Orphaned
    {
        std::uint8_t level;
        std::uint32_t line;
    };

    void addUnreadable(const GedcomLine& line)
    {
        notes_.unreadable(line.number,
                          ImportTexts::tr("%1 could not be read: %2").arg(inQuotes(line.value), reason(line.defect)));
        if (line.level)
            orphan(line);
    }

    void addSkipping(const GedcomLine& line)
    {
        notes_.notTaken(line.number,
                        ImportTexts::tr("%1 was not taken: its level skips at least one").arg(withTag(line)));
        orphan(line);
    }

    /// What stands below a line without a place has none either.
    void orphan(const GedcomLine& line)
    {
        close(*line.level);
        orphaned_ = Orphaned{*line.level, line.number};
    }

    void addNode(const GedcomLine& line)
    {
        orphaned_.reset();
        close(*line.level);
        const auto index = static_cast<NodeIndex>(tree_.nodes_.size());
        tree_.nodes_.push_back({.line = line, .parent = {}, .end = index + 1});
        if (open_.empty())
            tree_.records_.push_back(index);
        else
            tree_.nodes_.back().parent = open_.back();
        open_.push_back(index);
    }

    /// Ends every open node at `level` and below it.
    void close(std::size_t level)
    {
        while (open_.size() > level) {
            tree_.nodes_[open_.back()].end = static_cast<NodeIndex>(tree_.nodes_.size());
            open_.pop_back();
        }
    }

    GedcomTree& tree_;
    ImportNotes& notes_;
    std::vector<NodeIndex> open_;
    std::optional<Orphaned> orphaned_;
};

GedcomTree GedcomTree::read(std::string_view text, ImportNotes& notes, const Progress& progress)
{
    GedcomTree tree;
    Builder builder(tree, notes);
    GedcomLineReader lines(text);
    while (const auto line = lines.next()) {
        builder.add(*line);
        if (!progress.goesOn(line->number, text.size() - lines.bytesLeft(), text.size()))
            break;
    }
    builder.finish();

    tree.targets_.reserve(tree.records_.size());
    for (const NodeIndex record : tree.records_) {
        const GedcomLine& line = tree[record].line;
        if (line.xref.empty())
            continue;
        const auto [first, isNew] = tree.targets_.try_emplace(line.xref, record);
        if (!isNew)
            notes.remark(line.number,
                         ImportTexts::tr("%1 is defined by line %2 already; what points at it means the record there")
                             .arg(inQuotes(line.xref))
                             .arg(tree[first->second].line.number));
    }
    if (!tree.records_.empty() && tree[tree.records_.front()].line.tag == "HEAD") {
        const auto format = tree.child(tree.records_.front(), "GEDC");
        const auto version = format ? tree.child(*format, "VERS") : std::nullopt;
        tree.escapesOnlyFirstAt_ = version && tree[*version].line.value.starts_with('7');
    }
    return tree;
}

std::optional<NodeIndex> GedcomTree::child(NodeIndex parent, std::string_view tag) const
{
    for (const NodeIndex index : children(parent)) {
        if (nodes_[index].line.tag == tag)
            return index;
    }
    return std::nullopt;
}

std::optional<NodeIndex> GedcomTree::target(std::string_view xref) const
{
    const auto found = targets_.find(xref);
    return found == targets_.end() ? std::nullopt : std::optional(found->second);
}

QString GedcomTree::text(NodeIndex index) const
{
    // Version 7 doubles only the first @ of a line, so its lines are undone one by one; older versions double every @
    // and may cut a text between two of them, so theirs are undone when joined.
    QByteArray joined;
    const auto append = [&](std::string_view value) {
        if (escapesOnlyFirstAt_ && value.starts_with("@@"))
            value.remove_prefix(1);
        joined.append(value.data(), static_cast<qsizetype>(value.size()));
    };
    if (!nodes_[index].line.isPointer)
        append(nodes_[index].line.value);
    for (const NodeIndex child : children(index)) {
        const GedcomLine& line = nodes_[child].line;
        if (line.tag == newLineTag)
            joined.append('\n');
        if (!isContinuation(line.tag))
            continue;
        // A continuation is never a pointer: "@" signs around it are part of the text.
        append(line.isPointer ? std::string_view(line.value.data() - 1, line.value.size() + 2) : line.value);
    }
    if (!escapesOnlyFirstAt_)
        joined.replace("@@", "@");
    return QString::fromUtf8(joined);
}

} // namespace lineara
