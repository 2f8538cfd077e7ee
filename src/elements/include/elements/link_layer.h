#pragma once

#include "elements/geometry.h"

#include <QColor>
#include <QPainterPath>
#include <QString>

#include <cstdint>
#include <memory>

namespace lineara {

class Person;

/// The shape of one link between two persons' nodes. Owned by the BranchLayerView; the persons list it in their
/// `linkLayers`. Main thread only.
class LinkLayer
{
public:
    static constexpr double lineWidth = 1.0;

    /// A missing person, like a person without a node, stands for the point (0, 0). A type other than "partner" is
    /// drawn as offspring.
    LinkLayer(Person* source, Person* target, QString linkType);
    LinkLayer(const LinkLayer&) = delete;
    LinkLayer& operator=(const LinkLayer&) = delete;

    Person* source() const { return source_; }
    Person* target() const { return target_; }
    const QString& linkType() const { return linkType_; }
    bool isPartnerLink() const { return isPartner_; }

    /// Takes the centres of both nodes; if either has moved, by however little, the path is made anew when next asked
    /// for. Otherwise the path stays the same object.
    void layoutSublayers();
    /// The centres that the shape was last laid out for.
    CanvasPoint startPoint() const { return startPoint_; }
    CanvasPoint endPoint() const { return endPoint_; }

    /// The outline in picture coordinates, made when first asked for, with the winding fill rule. The reference holds
    /// until the shape changes or the path is dropped.
    const QPainterPath& path() const;
    bool hasPath() const { return path_ != nullptr; }
    /// Gives back the memory of a shape that is out of view.
    void dropPath() { path_.reset(); }

    /// Holds the outline (not its stroke); costs no path.
    Frame bounds() const;
    /// Whether a point lies inside the filled outline by the non-zero winding rule. The stroke counts for nothing.
    bool contains(CanvasPoint point) const;

    QColor fillColor() const;
    /// Blue while selected, otherwise the colour of the type.
    QColor strokeColor() const;
    bool isSelected() const { return isSelected_; }

    /// Place among the shapes of the layer that holds it, lowest first.
    std::uint32_t index() const { return index_; }

private:
    friend class BranchLayerView;

    Person* source_;
    Person* target_;
    CanvasPoint startPoint_;
    CanvasPoint endPoint_;
    QString linkType_;
    mutable std::unique_ptr<QPainterPath> path_;
    std::uint32_t index_ = 0;
    bool isPartner_;
    bool isSelected_ = false;
    bool isWanted_ = true; // meaningful only while the layer brings its shapes in line with the pool
};

} // namespace lineara
