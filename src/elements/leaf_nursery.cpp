#include "elements/leaf_nursery.h"

#include "elements/random_source.h"

#include <algorithm>
#include <unordered_set>

namespace lineara {

LeafNursery::LeafNursery(ObjectContext& context, RandomSource& random) : LeafNursery(context, &random) {}

LeafNursery::LeafNursery(ObjectContext& context) : LeafNursery(context, nullptr) {}

LeafNursery::LeafNursery(ObjectContext& context, RandomSource* random) : context_(&context), random_(random)
{
    context.setAwakening([this](Person& person) { awaken(person); });
    // Persons come to life once; those who did so before this nursery was there are made up for.
    for (Person* person : context.allPersons())
        awaken(*person);
    subscription_ = context.observe([this](const Change& change) { follow(change); });
}

LeafNursery::~LeafNursery()
{
    context_->setAwakening({});
    for (Person* person : context_->allPersons())
        person->setLeafView(nullptr);
}

void LeafNursery::awaken(Person& person)
{
    if (person.leafView())
        return;
    if (random_) {
        nodes_.push_back(std::make_unique<LeafView>(person, *random_));
    } else {
        SeededRandom ofPerson(person.recordId().number);
        nodes_.push_back(std::make_unique<LeafView>(person, ofPerson));
    }
    person.setLeafView(nodes_.back().get());
}

void LeafNursery::follow(const Change& change)
{
    if (const auto* changed = std::get_if<AttributesChanged>(&change)) {
        refresh(changed->person, changed->attributes);
    } else if (const auto* many = std::get_if<ManyChanged>(&change)) {
        for (Person* person : many->persons)
            refresh(*person, many->attributes);
    } else if (const auto* removed = std::get_if<RecordRemoved>(&change)) {
        if (removed->record.entity() == Entity::Person) {
            const auto& person = static_cast<const Person&>(removed->record);
            removed_.push_back({person.recordId(), person.leafView()});
        }
    }
}

void LeafNursery::refresh(Person& person, PersonAttributes attributes)
{
    LeafView* const node = person.leafView();
    if (!node)
        return;
    if (attributes.testFlag(PersonAttribute::X))
        node->updateXConstraint();
    if (attributes & (PersonAttribute::Name | PersonAttribute::Era))
        node->infoView().refreshText();
    if (attributes.testFlag(PersonAttribute::Image))
        node->imageView().refreshImage();
}

void LeafNursery::forgetRemoved()
{
    std::unordered_set<const LeafView*> gone;
    for (const RemovedNode& removed : removed_) {
        if (!context_->person(removed.person))
            gone.insert(removed.node);
    }
    std::erase_if(nodes_, [&](const auto& node) { return gone.contains(node.get()); });
    removed_.clear();
}

} // namespace lineara
