#include "gedcom_tree.h"

namespace lineara {
namespace {

constexpr std::string_view joinedTag = "CONC";
constexpr std::string_view newLineTag = "CONT";

} // namespace

bool isContinuation(std::string_view tag)
{
    return tag == joinedTag || tag == newLineTag;
}

/// Puts line after line where its level says, and sets those aside that have no place.
class GedcomTree::Builder
{
public:
    explicit Builder(GedcomTree& tree) : tree_(tree) {}

    void add(const GedcomLine& line)
    {
        const bool isUnreadable = line.defect != LineDefect::None;
        if (!isUnreadable && isOrphaned_ && *line.level > orphanLevel_) {
            tree_.strays_.push_back({line, orphanLine_});
        } else if (isUnreadable || *line.level > tree_.open_.size()) {
            tree_.strays_.push_back({line, {}});
            if (line.level)
                orphan(line);
        } else {
            addNode(line);
        }
    }

    void finish() { close(0); }

private:
    /// What stands below a line without a place has none either.
    void orphan(const GedcomLine& line)
    {
        close(*line.level);
        isOrphaned_ = true;
        orphanLevel_ = *line.level;
        orphanLine_ = line.number;
    }

    void addNode(const GedcomLine& line)
    {
        isOrphaned_ = false;
        close(*line.level);
        const auto index = static_cast<NodeIndex>(tree_.nodes_.size());
        tree_.nodes_.push_back({.line = line, .parent = {}, .end = index + 1});
        if (!tree_.open_.empty())
            tree_.nodes_.back().parent = tree_.open_.back();
        tree_.open_.push_back(index);
    }

    /// Ends every open node at `level` and below it.
    void close(std::size_t level)
    {
        while (tree_.open_.size() > level) {
            tree_.nodes_[tree_.open_.back()].end = static_cast<NodeIndex>(tree_.nodes_.size());
            tree_.open_.pop_back();
        }
    }

    GedcomTree& tree_;
    bool isOrphaned_ = false; // the last line without a place, and whether there may be lines below it
    std::uint8_t orphanLevel_ = 0;
    std::uint32_t orphanLine_ = 0;
};

void GedcomTree::read(const GedcomRecord& record, bool isVersionSeven)
{
    nodes_.clear();
    strays_.clear();
    escapesOnlyFirstAt_ = isVersionSeven;
    Builder builder(*this);
    GedcomLineReader lines(record.text, record.line);
    while (const auto line = lines.next())
        builder.add(*line);
    builder.finish();
}

std::optional<NodeIndex> GedcomTree::child(NodeIndex parent, std::string_view tag) const
{
    for (const NodeIndex index : children(parent)) {
        if (nodes_[index].line.tag == tag)
            return index;
    }
    return std::nullopt;
}

QByteArray GedcomTree::textBytes(NodeIndex index) const
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
    if (!escapesOnlyFirstAt_ && joined.contains('@'))
        joined.replace("@@", "@");
    return joined;
}

} // namespace lineara
