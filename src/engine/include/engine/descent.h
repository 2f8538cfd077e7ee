#pragma once

#include <unordered_set>
#include <vector>

namespace lineara::engine {

/// Whether `a` is a child of `b` or a descendant of one of its children.
///
/// `childrenOf(node)` and `parentsOf(node)` return ranges of nodes, each other's inverse. Node is a small value that
/// std::hash knows (a pointer or an index). Walks up from `a` and meets nobody twice, so the time is linear in the
/// ancestors of `a` and the depth is bounded by memory alone; at once false if `a` has no parents or `b` no children.
///
/// Who asks before linking `parent` to `child` asks in this order: the same person, refused; a link other than
/// offspring, allowed; a child with two parents, refused, even if `parent` is one of them; a parent that is descended
/// from the child, refused.
template<class Node, class ChildrenOf, class ParentsOf>
bool isDescendedFrom(const Node& a, const Node& b, ChildrenOf&& childrenOf, ParentsOf&& parentsOf)
{
    if (std::empty(childrenOf(b)) || std::empty(parentsOf(a)))
        return false;
    std::vector<Node> ancestors{a};
    std::unordered_set<Node> met;
    for (std::size_t next = 0; next < ancestors.size(); ++next) {
        // By index and by value: `ancestors` grows meanwhile.
        const Node descendant = ancestors[next];
        for (const Node& parent : parentsOf(descendant)) {
            if (parent == b)
                return true;
            if (met.insert(parent).second)
                ancestors.push_back(parent);
        }
    }
    return false;
}

} // namespace lineara::engine
