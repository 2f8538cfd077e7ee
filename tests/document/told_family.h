// A small family in a document that tells about it.

#pragma once

#include "edited_document.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QMenu>

namespace lineara {

/// A couple (mother, father) with two children, the first of whom has a child; and somebody unlinked.
class ToldFamily : public testing::Test
{
protected:
    ToldFamily()
    {
        for (Person* const child : {&son, &daughter}) {
            edited.link(mother, *child, offspringLink);
            edited.link(father, *child, offspringLink);
        }
        edited.link(mother, father, partnerLink);
        edited.link(son, grandchild, offspringLink);
        edited.document->deselectAll();
        EditedDocument::deliver();
    }

    Person& named(const char16_t* name)
    {
        Person& person = edited.add();
        person.setName(QString::fromUtf16(name));
        return person;
    }

    QAction& command(int at) const { return *actions()[at]; }
    QList<QAction*> actions() const
    {
        QList<QAction*> commands = edited.document->window().familyMenu()->actions();
        commands.removeIf([](const QAction* action) { return action->isSeparator(); });
        return commands;
    }
    void trigger(int at)
    {
        EditedDocument::deliver();
        ASSERT_TRUE(command(at).isEnabled());
        command(at).trigger();
    }
    static constexpr int relationship = 0;
    static constexpr int ancestors = 1;
    static constexpr int descendants = 2;
    static constexpr int all = 3;
    static constexpr int checks = 4;

    template<class Widget>
    Widget& part(const char* name) const
    {
        return *edited.document->window().findChild<Widget*>(QLatin1String(name));
    }

    EditedDocument edited;
    Person& mother = named(u"Mother");
    Person& father = named(u"Father");
    Person& son = named(u"Son");
    Person& daughter = named(u"Daughter");
    Person& grandchild = named(u"Grandchild");
    Person& stranger = named(u"Stranger");
};

} // namespace lineara
