#include "engine/family_graph.h"

namespace lineara::engine {

void Adjacency::reserve(std::size_t persons, std::size_t links)
{
    begins_.reserve(persons + 1);
    others_.reserve(links);
}

} // namespace lineara::engine
