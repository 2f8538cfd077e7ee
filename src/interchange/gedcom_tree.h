#pragma once

#include "gedcom_line.h"
#include "gedcom_records.h"

#include <QString>

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace lineara {

/// Place of a line in a GedcomTree.
using NodeIndex = std::uint32_t;

struct GedcomNode
{
    GedcomLine line;
    std::optional<NodeIndex> parent; ///< no value for a record (level 0)
    NodeIndex end = 0;               ///< one past the last line below this one
};

/// A line without a place in the tree: it can't be read, skips a level, or stands below such a line.
struct GedcomStray
{
    GedcomLine line;
    std::optional<std::uint32_t> below; ///< number of the line that has no place itself
};

/// The lines of a record as a tree, in file order: the lines below a node follow it directly. Made to be filled again
/// and again, record by record.
class GedcomTree
{
public:
    GedcomTree() = default;
    explicit GedcomTree(const GedcomRecord& record, bool isVersionSeven) { read(record, isVersionSeven); }

    /// Forgets what was there. The record's text outlives the tree.
    void read(const GedcomRecord& record, bool isVersionSeven);

    /// Number of lines with a place. The record itself is node 0, if it is readable.
    NodeIndex size() const { return static_cast<NodeIndex>(nodes_.size()); }
    const GedcomNode& operator[](NodeIndex index) const { return nodes_[index]; }
    const std::vector<GedcomStray>& strays() const { return strays_; }

    /// The nodes one level below, in file order.
    class Children;
    Children children(NodeIndex parent) const;

    /// The first child with this tag.
    std::optional<NodeIndex> child(NodeIndex parent, std::string_view tag) const;

    /// The value of a line with its continuations joined and doubled @ signs undone, in UTF-8. Empty for a pointer.
    QByteArray textBytes(NodeIndex index) const;
    QString text(NodeIndex index) const { return QString::fromUtf8(textBytes(index)); }

private:
    class Builder;

    std::vector<GedcomNode> nodes_;
    std::vector<GedcomStray> strays_;
    std::vector<NodeIndex> open_; // while being built
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
