#pragma once

#include "canvas/placement.h"
#include "canvas/tree_view.h"
#include "elements/leaf_nursery.h"
#include "elements/random_source.h"
#include "model/object_context.h"

#include <QCoreApplication>

#include <memory>

namespace lineara {

/// A family that tests build person by person, and then show on a canvas of a known size.
class ShownFamily
{
public:
    ShownFamily() = default;
    /// What is still announced finds nobody, instead of the next test's family in the same place.
    ~ShownFamily()
    {
        view.reset();
        QCoreApplication::processEvents();
    }
    ShownFamily(const ShownFamily&) = delete;
    ShownFamily& operator=(const ShownFamily&) = delete;

    ObjectContext context{QUuid::createUuidV5(QUuid(), QStringLiteral("shown family"))};
    SeededRandom random{1};
    LeafNursery nursery{context};
    Pool& pool = context.insertPool();
    std::unique_ptr<TreeView> view;

    Person& add(std::optional<std::int32_t> x, std::optional<std::int32_t> generation = std::nullopt,
                const QString& name = QStringLiteral("Anna"))
    {
        PersonValues values;
        values.name = name;
        values.x = x;
        values.generation = generation;
        Person& person = context.insertPerson(values);
        pool.addPerson(person);
        return person;
    }

    /// Shows the family as it is; rows are taken from the generations given.
    TreeView& show(QSize viewport = {900, 600})
    {
        pool.arrangeGenerations();
        return open(viewport);
    }

    /// Works the generations out first.
    TreeView& processAndShow(QSize viewport = {900, 600})
    {
        pool.process();
        return open(viewport);
    }

    static double xConstant(const Person& person) { return person.leafView()->xConstraint()->constant; }
    static double yConstant(const Person& person) { return person.leafView()->yConstraint()->constant; }

    /// Pixel of a node's lower left corner.
    QPointF pixelOf(const Person& person) const
    {
        const Frame frame = person.leafView()->frame();
        return view->toViewport({frame.x, frame.y});
    }

private:
    TreeView& open(QSize viewport)
    {
        view = std::make_unique<TreeView>(
            pool, firstFrame(viewport.width(), pool.maxGenerationSize(), pool.maxGeneration()), random);
        view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        view->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        view->resize(viewport);
        view->show();
        QCoreApplication::processEvents();
        return *view;
    }
};

} // namespace lineara
