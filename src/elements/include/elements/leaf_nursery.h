#pragma once

#include "elements/leaf_view.h"
#include "model/object_context.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace lineara {

/// Makes the node of every person that comes to life, owns all nodes and keeps each in step with its person: place,
/// texts and picture. Made before the canvas, so that the nodes are up to date when the canvas hears of a change.
///
/// A removed person keeps its node, since undo may bring it back. Main thread only; the context must outlive it.
class LeafNursery
{
public:
    /// Leaves tilt as `random` says; it must outlive the nursery.
    LeafNursery(ObjectContext& context, RandomSource& random);
    /// Leaves tilt as each person's number says, so that a family always gives the same picture.
    explicit LeafNursery(ObjectContext& context);
    ~LeafNursery();
    LeafNursery(const LeafNursery&) = delete;
    LeafNursery& operator=(const LeafNursery&) = delete;

    /// Number of nodes kept, those of removed persons included.
    std::size_t nodeCount() const { return nodes_.size(); }

    /// Drops the nodes of persons that are no longer in the context. To be called when nothing can bring them back:
    /// when the undo history has been cleared.
    void forgetRemoved();

private:
    LeafNursery(ObjectContext& context, RandomSource* random);

    void awaken(Person& person);
    void follow(const Change& change);
    void refresh(Person& person, PersonAttributes attributes);

    ObjectContext* context_;
    RandomSource* random_; // nullptr: each person's number is the seed
    std::vector<std::unique_ptr<LeafView>> nodes_;
    struct RemovedNode
    {
        RecordId person;
        const LeafView* node = nullptr;
    };
    std::vector<RemovedNode> removed_;
    Subscription subscription_;
};

} // namespace lineara
