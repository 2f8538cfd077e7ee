#include "reference_check.h"

#include "store_texts.h"

#include <algorithm>

namespace lineara::store {

Outcome<Done> ReferenceCheck::finish()
{
    const auto byNumber = [](const Object& a, const Object& b) { return a.number < b.number; };
    std::sort(objects_.begin(), objects_.end(), byNumber);
    const auto twin = std::adjacent_find(objects_.begin(), objects_.end(),
                                         [](const Object& a, const Object& b) { return a.number == b.number; });
    if (twin != objects_.end())
        return Failure{StoreTexts::tr("object z%1 is there twice.").arg(twin->number)};
    for (const auto& reference : references_) {
        const auto* const target = find(reference.target);
        if (target && target->entity && target->entity->name == reference.relationship->destination)
            continue;
        const auto reason =
            target ? StoreTexts::tr("which is of another entity.") : StoreTexts::tr("which is not in the file.");
        return Failure{StoreTexts::tr("object z%1: relationship “%2” refers to z%3, %4")
                           .arg(reference.owner)
                           .arg(QString::fromStdString(reference.relationship->name))
                           .arg(reference.target)
                           .arg(reason)};
    }
    return Done{};
}

const ReferenceCheck::Object* ReferenceCheck::find(Number number) const
{
    // Numbers mostly follow each other without a gap, so the first guess is mostly right.
    const auto first = objects_.empty() ? 0 : objects_.front().number;
    if (number < first)
        return nullptr;
    if (const auto guess = number - first; guess < objects_.size() && objects_[guess].number == number)
        return &objects_[guess];
    const auto found = std::lower_bound(objects_.begin(), objects_.end(), number,
                                        [](const Object& object, Number wanted) { return object.number < wanted; });
    return found != objects_.end() && found->number == number ? &*found : nullptr;
}

} // namespace lineara::store
