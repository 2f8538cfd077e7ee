#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace lineara {

/// Where cross-references stand, by their hashes alone: filled first, asked afterwards. Large families have some
/// hundred thousand, which are put in while a window waits, so it remembers and compares no texts.
class XrefPlaces
{
public:
    using Place = std::uint32_t;

    void add(std::string_view xref, Place place);
    /// After the last one was added.
    void finish();

    /// The places in the order in which they were added. A few that have to do with another one may be among them, so
    /// whoever asks looks there.
    std::vector<Place> find(std::string_view xref) const;

private:
    struct Entry
    {
        std::uint32_t hash;
        Place place;
        std::uint32_t next; ///< that of the next entry in the same chain plus one; 0 at its end
    };

    std::vector<Entry> entries_;
    std::vector<std::uint32_t> chains_; // a power of two: the first entry of each plus one
};

} // namespace lineara
