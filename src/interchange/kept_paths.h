#pragma once

#include "interchange/import_report.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace lineara {

/// Counts lines by the tags that lead to them.
class KeptPaths
{
public:
    using Path = std::uint32_t;
    static constexpr Path root = 0;

    /// Paths told apart; lines of others are counted together. A file can name any number of tags.
    static constexpr std::size_t mostPaths = 5000;

    KeptPaths() : entries_(1) {}

    Path below(Path parent, std::string_view tag);
    void count(Path path, std::uint32_t line);

    /// Every path that was counted, in the order of the first lines.
    std::vector<ImportReport::KeptLines> list() const;

private:
    struct Key
    {
        Path parent;
        std::string tag;
        friend bool operator==(const Key&, const Key&) = default;
    };
    struct KeyView
    {
        Path parent;
        std::string_view tag;
    };
    struct Hash
    {
        using is_transparent = void;
        std::size_t operator()(const Key& key) const { return (*this)(KeyView{key.parent, key.tag}); }
        std::size_t operator()(const KeyView& key) const
        {
            return std::hash<std::string_view>()(key.tag) ^ (std::size_t{key.parent} * 0x9E3779B97F4A7C15u);
        }
    };
    struct Equal
    {
        using is_transparent = void;
        bool operator()(const Key& a, const Key& b) const { return a == b; }
        bool operator()(const KeyView& a, const Key& b) const { return a.parent == b.parent && a.tag == b.tag; }
        bool operator()(const Key& a, const KeyView& b) const { return (*this)(b, a); }
    };
    struct Entry
    {
        std::string name;
        std::size_t lines = 0;
        std::uint32_t firstLine = 0;
    };

    std::vector<Entry> entries_; // root first; its lines are those of the paths beyond the limit
    std::unordered_map<Key, Path, Hash, Equal> paths_;
};

} // namespace lineara
