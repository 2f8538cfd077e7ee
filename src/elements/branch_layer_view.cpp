#include "elements/branch_layer_view.h"

#include "elements/element_host.h"
#include "elements/notifications.h"
#include "model/object_context.h"
#include "platform/notification_center.h"

#include <algorithm>
#include <array>
#include <compare>

namespace lineara {

namespace {

struct LinkList
{
    QString type;
    const std::vector<LinkRecord>& records;
};

// Partner links first, so that they lie below.
std::array<LinkList, 2> linkLists(const Pool& pool)
{
    return {LinkList{u"partner"_qs, pool.partners()}, LinkList{u"offspring"_qs, pool.offspring()}};
}

/// The same lists as the records have them now. The pool's lists are as old as the last run of the engine.
struct RecordedLinks
{
    std::vector<LinkRecord> partners;
    std::vector<LinkRecord> offspring;
};

template<class IsHidden>
RecordedLinks recordedLinks(const Pool& pool, const IsHidden& isHidden)
{
    RecordedLinks links;
    links.partners.reserve(pool.partners().size());
    links.offspring.reserve(pool.offspring().size());
    for (const Person* const person : pool.persons()) {
        if (isHidden(*person))
            continue;
        for (const Person* const partner : person->partners()) {
            if (std::is_lt(compareAsText(person->recordId(), partner->recordId())) && !isHidden(*partner))
                links.partners.push_back({person->recordId(), partner->recordId()});
        }
        for (const Person* const child : person->children()) {
            if (!isHidden(*child))
                links.offspring.push_back({person->recordId(), child->recordId()});
        }
    }
    return links;
}

bool joins(const LinkLayer& layer, const Person* source, const Person* target)
{
    if (layer.source() == source && layer.target() == target)
        return true;
    // A partnership has no direction: a shape made by dragging may start at the other end.
    return layer.isPartnerLink() && layer.source() == target && layer.target() == source;
}

bool shows(const LinkLayer& layer, const LinkRecord& record, bool isPartner)
{
    return layer.isPartnerLink() == isPartner && layer.source() && layer.target() &&
           layer.source()->recordId() == record.source && layer.target()->recordId() == record.target;
}

LinkLayer* layerOfRecord(const ObjectContext& context, const LinkRecord& record, QStringView type)
{
    const Person* const source = context.person(record.source);
    const Person* const target = context.person(record.target);
    return source && target ? BranchLayerView::layerOf(*source, *target, type) : nullptr;
}

std::optional<LinkSelectionNotification::Link> selectionOf(const LinkLayer* layer)
{
    if (!layer || !layer->source() || !layer->target())
        return std::nullopt;
    return LinkSelectionNotification::Link{layer->source()->recordId(), layer->target()->recordId(), layer->linkType()};
}

} // namespace

BranchLayerView::BranchLayerView(Pool& pool) : pool_(&pool)
{
    makeLayers();
}

BranchLayerView::~BranchLayerView()
{
    for (const auto& layer : layers_)
        layer->isWanted_ = false;
    removeUnwanted();
}

void BranchLayerView::makeLayers()
{
    layers_.reserve(layers_.size() + pool_->partners().size() + pool_->offspring().size());
    for (Person* person : pool_->persons())
        person->linkLayers().reserve(person->partners().size() + person->children().size() + person->parents().size());
    for (const auto& [type, records] : linkLists(*pool_)) {
        for (const LinkRecord& record : records)
            show(layerFromLink(record, type));
    }
}

std::unique_ptr<LinkLayer> BranchLayerView::layerFromLink(const LinkRecord& record, const QString& type) const
{
    Person* const source = pool_->context().person(record.source);
    Person* const target = pool_->context().person(record.target);
    auto layer = std::make_unique<LinkLayer>(source, target, type);
    for (Person* person : {source, target}) {
        if (person)
            person->linkLayers().push_back(layer.get());
    }
    return layer;
}

LinkLayer& BranchLayerView::addLink(const LinkRecord& record, const QString& type)
{
    show(layerFromLink(record, type));
    layers_.back()->layoutSublayers();
    return *layers_.back();
}

void BranchLayerView::show(std::unique_ptr<LinkLayer> layer)
{
    layer->index_ = static_cast<std::uint32_t>(layers_.size());
    layers_.push_back(std::move(layer));
}

void BranchLayerView::removeLayer(LinkLayer& layer)
{
    layer.isWanted_ = false;
    removeUnwanted();
}

void BranchLayerView::removeLayersOf(Person& person)
{
    if (person.linkLayers().empty())
        return;
    for (LinkLayer* layer : person.linkLayers())
        layer->isWanted_ = false;
    removeUnwanted();
}

bool BranchLayerView::syncWithRecords(const std::function<bool(const Person&)>& isHidden)
{
    const RecordedLinks links = recordedLinks(*pool_, isHidden);
    for (const auto& layer : layers_)
        layer->isWanted_ = false;
    std::vector<std::pair<LinkRecord, QString>> missing;
    markWanted(links.partners, u"partner"_qs, missing);
    markWanted(links.offspring, u"offspring"_qs, missing);
    const std::size_t before = layers_.size();
    removeUnwanted();
    const bool changed = layers_.size() != before || !missing.empty();
    for (const auto& [record, type] : missing)
        addLink(record, type);
    return changed;
}

/// Marks one shape for each link, and adds the links that have none to `missing`.
void BranchLayerView::markWanted(const std::vector<LinkRecord>& records, const QString& type,
                                 std::vector<std::pair<LinkRecord, QString>>& missing)
{
    const bool isPartner = type == partnerLink;
    // The shapes stand in the order of the records but for the latest changes.
    std::size_t next = 0;
    for (const LinkRecord& record : records) {
        const LinkLayer* const expected = next < layers_.size() ? layers_[next].get() : nullptr;
        // Even the expected one may have a double that was made earlier.
        LinkLayer* const layer = expected && shows(*expected, record, isPartner)
                                     ? layerOf(*expected->source(), *expected->target(), type)
                                     : layerOfRecord(pool_->context(), record, type);
        if (layer) {
            layer->isWanted_ = true;
            next = layer->index_ + std::size_t{1};
        } else {
            missing.emplace_back(record, type);
        }
    }
}

// One sweep however many go, here and in each person's list, because a person may have thousands of links.
void BranchLayerView::removeUnwanted()
{
    if (selectedLink_ && !selectedLink_->isWanted_)
        selectedLink_ = nullptr;
    for (const auto& layer : layers_) {
        if (layer->isWanted_)
            continue;
        for (Person* person : {layer->source(), layer->target()}) {
            if (person)
                std::erase_if(person->linkLayers(), [](const LinkLayer* listed) { return !listed->isWanted_; });
        }
    }
    std::erase_if(layers_, [](const auto& layer) { return !layer->isWanted_; });
    for (std::uint32_t index = 0; const auto& layer : layers_)
        layer->index_ = index++;
}

LinkLayer* BranchLayerView::layerOf(const Person& source, const Person& target, QStringView type)
{
    // Both ends list the shape; the end with fewer links is searched, which keeps large families linear.
    const bool sourceIsShorter = source.linkLayers().size() < target.linkLayers().size();
    const auto& candidates = sourceIsShorter ? source.linkLayers() : target.linkLayers();
    const bool isPartner = type == partnerLink;
    const auto found = std::ranges::find_if(candidates, [&](const LinkLayer* layer) {
        return layer->isPartnerLink() == isPartner && joins(*layer, &source, &target);
    });
    return found != candidates.end() ? *found : nullptr;
}

void BranchLayerView::select(LinkLayer& layer)
{
    deselectSelected();
    layer.isSelected_ = true;
    selectedLink_ = &layer;
}

void BranchLayerView::deselectSelected()
{
    if (selectedLink_)
        selectedLink_->isSelected_ = false;
    selectedLink_ = nullptr;
}

void BranchLayerView::mouseDown(CanvasPoint point, ElementHost& host)
{
    deselectSelected();
    if (LinkLayer* const pressed = hit(point)) {
        host.makeFirstResponder(*this);
        select(*pressed);
    }
    NotificationCenter::defaultCenter().enqueue(LinkSelectionNotification{&host.pool(), selectionOf(selectedLink_)});
}

LinkLayer* BranchLayerView::hit(CanvasPoint point) const
{
    const auto found =
        std::find_if(layers_.rbegin(), layers_.rend(), [&](const auto& layer) { return layer->contains(point); });
    return found != layers_.rend() ? found->get() : nullptr;
}

} // namespace lineara
