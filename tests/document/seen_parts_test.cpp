// What part of a family is in view, over closing and opening.

#include "canvas/view_driver.h"
#include "listed_document.h"
#include "seen_parts.h"

#include <QSettings>

#include <gmock/gmock.h>

using namespace lineara;
using testing::Optional;

namespace {

QUuid family(int number)
{
    return QUuid::createUuidV5(QUuid(), QString::number(number));
}

std::unique_ptr<ObjectContext> wideFamily()
{
    auto context = std::make_unique<ObjectContext>();
    Pool& pool = context->insertPool();
    Person* before = nullptr;
    for (int number = 0; number < 60; ++number) {
        Person& person = context->insertPerson({.name = QString::number(number), .x = number * 152});
        pool.addPerson(person);
        if (before)
            before->addPartner(person);
        before = &person;
    }
    return context;
}

class SeenPartsOfFamilies : public testing::Test
{
protected:
    SeenPartsOfFamilies() { QSettings().clear(); }
};

/// A family in a window of that size, from opening it to closing the window.
class Visit
{
public:
    explicit Visit(const QString& path, QSize size = {1200, 800}) : document_(std::move(Document::open(path).value()))
    {
        document_->window().resize(size);
        document_->window().show();
        EXPECT_TRUE(settle(*document_));
        QApplication::processEvents();
    }
    ~Visit() { document_->window().close(); }

    TreeView& canvas() const { return *document_->treeView(); }
    Document& document() const { return *document_; }
    CanvasPoint middle() const { return canvas().toCanvas(QRectF(canvas().viewport()->rect()).center()); }

private:
    std::unique_ptr<Document> document_;
};

} // namespace

TEST_F(SeenPartsOfFamilies, AreKeptForEachFamily)
{
    const SeenPart part{{117}, -12.5, 1.0 / 3, 0.75};
    SeenParts::keep(family(1), part);
    SeenParts::keep(family(2), SeenPart{{5}, 0, 0, 8});
    EXPECT_THAT(SeenParts::of(family(1)), Optional(part));
    SeenParts::keep(family(1), SeenPart{{5}, 1, 2, 3});
    EXPECT_THAT(SeenParts::of(family(1)), Optional(SeenPart{{5}, 1, 2, 3}));
    EXPECT_EQ(SeenParts::of(family(3)), std::nullopt);
}

TEST_F(SeenPartsOfFamilies, OfThoseSeenLongestAgoAreForgotten)
{
    for (int number = 0; number <= SeenParts::mostFamilies; ++number)
        SeenParts::keep(family(number), SeenPart{{5}, 0, 0, 1});
    EXPECT_EQ(SeenParts::of(family(0)), std::nullopt);
    EXPECT_NE(SeenParts::of(family(1)), std::nullopt);
    EXPECT_NE(SeenParts::of(family(SeenParts::mostFamilies)), std::nullopt);
}

TEST_F(SeenPartsOfFamilies, ThatMakeNoSenseAreNone)
{
    const QString name = family(1).toString(QUuid::WithoutBraces);
    for (const char16_t* rest : {u" 5 0 0", u" 5 0 0 0", u" 5 x 0 1", u" 5 nan 0 1", u" 5 0 0 inf", u" 5 0 0 1 1"}) {
        QSettings().setValue(QStringLiteral("seenParts"), QStringList{name + QString::fromUtf16(rest)});
        EXPECT_EQ(SeenParts::of(family(1)), std::nullopt);
    }
}

TEST_F(SeenPartsOfFamilies, AFamilyOpensWhereItWasLeft)
{
    const TestFiles files;
    const QString path = files.save(QStringLiteral("wide.lineara"), *wideFamily());
    CanvasPoint middle;
    {
        const Visit first(path);
        first.canvas().zoomTo(1.5, {100, 100});
        first.canvas().reveal(*first.document().context().person({150}));
        middle = first.middle();
    }
    const Visit second(path);
    EXPECT_DOUBLE_EQ(second.canvas().zoom(), 1.5);
    EXPECT_NEAR(second.middle().x, middle.x, 1);
    EXPECT_NEAR(second.middle().y, middle.y, 1);
    EXPECT_TRUE(isInView(second.canvas(), *second.document().context().person({150})));
}

TEST_F(SeenPartsOfFamilies, TheMiddleStaysInAWindowOfAnotherSize)
{
    const TestFiles files;
    const QString path = files.save(QStringLiteral("wide.lineara"), *wideFamily());
    CanvasPoint middle;
    {
        const Visit first(path);
        first.canvas().reveal(*first.document().context().person({130}));
        middle = first.middle();
    }
    const Visit second(path, {900, 700});
    EXPECT_NEAR(second.middle().x, middle.x, 1);
}

TEST_F(SeenPartsOfFamilies, AreFoundByTheirPersonsWhereverThoseStandByNow)
{
    const TestFiles files;
    auto wide = wideFamily();
    const QString path = files.save(QStringLiteral("wide.lineara"), *wide);
    {
        const Visit first(path);
        first.canvas().reveal(*first.document().context().person({140}));
    }
    wide->shiftX(*wide->allPools().front(), -100);
    const Visit second(files.save(QStringLiteral("wide.lineara"), *wide));
    EXPECT_TRUE(isInView(second.canvas(), *second.document().context().person({140})));
}

TEST_F(SeenPartsOfFamilies, AreNotInTheFile)
{
    const TestFiles files;
    const QString path = files.save(QStringLiteral("family.lineara"), *threeGenerations());
    QByteArray before;
    {
        const Visit visit(path);
        before = textOf(visit.document().context());
        visit.canvas().zoomTo(2, {0, 0});
    }
    const Visit again(path);
    EXPECT_EQ(textOf(again.document().context()), before);
}

TEST_F(SeenPartsOfFamilies, AFamilyWithoutAFileLeavesNone)
{
    {
        EditedDocument edited;
        edited.add();
        edited.document->window().close();
    }
    EXPECT_FALSE(QSettings().contains(QStringLiteral("seenParts")));
}
