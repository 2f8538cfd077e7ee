#pragma once

#include "gedcom_line.h"
#include "platform/progress.h"

#include <QString>

#include <cstdint>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace lineara {

class ImportNotes;

/// Place of a line in a GedcomTree.
using NodeIndex = std::uint32_t;

struct GedcomNode
{
    GedcomLine line;
    std::optional<NodeIndex> parent; ///< no value for a record (level 0)
    NodeIndex end = 0;               ///< one past the last line below this one
};

/// The lines of a file as a tree, in file order: the lines below a node follow it directly.
///
/// Lines that can't be read, skip a level, or stand below such a line are told and have no node.
class GedcomTree
{
public:
    /// `text` is UTF-8 and outlives the tree. Unfinished if the progress is stopped meanwhile.
    static GedcomTree read(std::string_view text, ImportNotes& notes, const Progress& progress);

    const std::vector<NodeIndex>& records() const { return records_; }
    const GedcomNode& operator[](NodeIndex index) const { return nodes_[index]; }
    NodeIndex size() const { return static_cast<NodeIndex>(nodes_.size()); }

    /// The nodes one level below, in file order.
    class Children;
    Children children(NodeIndex parent) const;

    /// The first child with this tag.
    std::optional<NodeIndex> child(NodeIndex parent, std::string_view tag) const;

    /// The record that pointers to `xref` mean: the first one that defines it.
    std::optional<NodeIndex> target(std::string_view xref) const;

    /// The value of a line with its continuations joined and doubled @ signs undone. Empty for a pointer.
    QString text(NodeIndex index) const;

private:
    class Builder;

    std::vector<GedcomNode> nodes_;
    std::vector<NodeIndex> records_;
    std::unordered_map<std::string_view, NodeIndex> targets_;
    bool escapesOnlyFirstAt_ = false;
};

class GedcomTree::Children
{
public:
    class Iterator
    {
    public:
        Iterator(const GedcomTree& tree, NodeIndex at) : tree_(&tree), at_(at) {}
        NodeIndex operator*() const { return at_; }
        Iterator& operator++()
        {
            at_ = (*tree_)[at_].end;
            return *this;
        }
        bool operator!=(const Iterator& other) const { return at_ != other.at_; }

    private:
        const GedcomTree* tree_;
        NodeIndex at_;
    };

    Children(const GedcomTree& tree, NodeIndex parent) : tree_(&tree), parent_(parent) {}
    Iterator begin() const { return {*tree_, parent_ + 1}; }
    Iterator end() const { return {*tree_, (*tree_)[parent_].end}; }

private:
    const GedcomTree* tree_;
    NodeIndex parent_;
};

inline GedcomTree::Children GedcomTree::children(NodeIndex parent) const
{
    return {*this, parent};
}

/// True for the tags whose values continue the text of the line above.
bool isContinuation(std::string_view tag);

} // namespace lineara
