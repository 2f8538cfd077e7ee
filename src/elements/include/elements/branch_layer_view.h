#pragma once

#include "elements/geometry.h"
#include "elements/link_layer.h"
#include "model/pool.h"

#include <QString>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace lineara {

class ElementHost;
class Person;

/// The layer of link shapes, beneath the nodes. Owns the shapes, lists each in both of its persons' `linkLayers`, and
/// knows which one is selected. A person's shapes have to be removed before its record goes. Main thread only.
class BranchLayerView
{
public:
    /// Makes one shape for every link of the pool. They are laid out by whoever lays out the nodes.
    explicit BranchLayerView(Pool& pool);
    ~BranchLayerView();
    BranchLayerView(const BranchLayerView&) = delete;
    BranchLayerView& operator=(const BranchLayerView&) = delete;

    Pool& pool() const { return *pool_; }

    /// The shapes from the lowest to the topmost; a shape's index() is its place here.
    const std::vector<std::unique_ptr<LinkLayer>>& layers() const { return layers_; }

    /// Adds a shape for every record of the pool: all partner links, and above them all offspring links. They still
    /// need to be laid out, because they are made before the nodes have their places.
    void makeLayers();
    /// A new shape that needs to be laid out, listed by both persons, but not shown yet: it belongs to the caller.
    std::unique_ptr<LinkLayer> layerFromLink(const LinkRecord& record, const QString& type) const;
    /// Shows a new shape above all others, laid out.
    LinkLayer& addLink(const LinkRecord& record, const QString& type);

    void removeLayer(LinkLayer& layer);
    void removeLayersOf(Person& person);
    /// Brings the shapes in line with the links of the pool's members: exactly one for each. Shapes that are there
    /// already stay, of doubles the one that was made first; surplus ones go, missing ones come on top, laid out. Links
    /// of hidden persons have no shape. True if any came or went.
    bool syncWithRecords(const std::function<bool(const Person&)>& isHidden);

    /// The shape of a link between them, whichever of two partners is named first; of several the one that was made
    /// first, nullptr if there is none.
    static LinkLayer* layerOf(const Person& source, const Person& target, QStringView type);

    LinkLayer* selectedLink() const { return selectedLink_; }
    void select(LinkLayer& layer);
    void deselectSelected();

    /// A press beside all nodes: selects the link under the pointer, if there is one, and announces what is selected
    /// now.
    void mouseDown(CanvasPoint point, ElementHost& host);
    /// A link stays selected only for as long as the layer is first responder.
    void resignFirstResponder() { deselectSelected(); }

    /// The topmost shape whose filled outline holds the point, or nullptr.
    LinkLayer* hit(CanvasPoint point) const;

private:
    void show(std::unique_ptr<LinkLayer> layer);
    void markWanted(const std::vector<LinkRecord>& records, const QString& type,
                    std::vector<std::pair<LinkRecord, QString>>& missing);
    void removeUnwanted();

    Pool* pool_;
    std::vector<std::unique_ptr<LinkLayer>> layers_;
    LinkLayer* selectedLink_ = nullptr;
};

} // namespace lineara
