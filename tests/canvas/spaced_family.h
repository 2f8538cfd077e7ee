#pragma once

#include "elements/node_layout.h"
#include "elements/notifications.h"
#include "platform/notification_center.h"
#include "shown_family.h"

#include <gtest/gtest.h>

#include <vector>

namespace lineara {

/// A family whose rows are crowded and then looked at.
class Spaced : public testing::Test
{
protected:
    /// A person whose node is as wide as nodes get.
    Person& addWide(std::optional<std::int32_t> x, std::optional<std::int32_t> generation = std::nullopt)
    {
        Person& person = family.add(x, generation, QStringLiteral("Wilhelmina Charlotte Amalia of Saxe-Meiningen"));
        EXPECT_EQ(person.leafView()->width(), node_layout::greatestNodeWidth);
        return person;
    }

    std::vector<std::int32_t> places() const
    {
        std::vector<std::int32_t> places;
        for (const Person* const person : family.pool.persons())
            places.push_back(person->x().value_or(-1));
        return places;
    }

    void drop(Person& person)
    {
        NotificationCenter::defaultCenter().post(PersonDragEndedNotification{&family.pool, person.recordId()});
    }
    void moveTo(Person& person, std::int32_t x)
    {
        family.context.journal().begin(QStringLiteral("Move Person"));
        person.setX(x);
        drop(person);
    }
    void refresh()
    {
        family.pool.arrangeGenerations();
        family.view->refreshHierarchy();
        family.view->settle();
    }

    ShownFamily family;
};

} // namespace lineara
