#include "free_heights.h"

#include "elements/leaf_view.h"
#include "model/object_context.h"

#include <algorithm>
#include <iterator>

namespace lineara {

FreeHeights::Heights FreeHeights::of(const Pool& pool)
{
    Heights heights;
    for (const Person* const person : pool.persons()) {
        const LeafView* const node = person->leafView();
        if (!person->generation() && node && node->yConstraint())
            heights.push_back({person->recordId(), node->yConstraint()->constant});
    }
    return heights;
}

FreeHeights::Heights FreeHeights::changed(const Heights& heights, const Pool& pool)
{
    Heights changed;
    std::ranges::copy_if(heights, std::back_inserter(changed), [&](const Height& height) {
        const Person* const person = pool.context().person(height.person);
        return !person || person->pool() != &pool || person->generation();
    });
    return changed;
}

void FreeHeights::add(StepId step, Side side, const Heights& heights)
{
    if (heights.empty())
        return;
    Heights& kept = kept_[{step, side}];
    kept.insert(kept.end(), heights.begin(), heights.end());
}

void FreeHeights::replace(StepId step, Side side, Heights heights)
{
    if (heights.empty())
        kept_.erase({step, side});
    else
        kept_.insert_or_assign({step, side}, std::move(heights));
}

const FreeHeights::Heights& FreeHeights::at(StepId step, Side side) const
{
    static const Heights none;
    const auto found = kept_.find({step, side});
    return found == kept_.end() ? none : found->second;
}

} // namespace lineara
