#pragma once

#include "canvas/family_scene.h"
#include "canvas/picture_drawing.h"
#include "elements/leaf_nursery.h"
#include "model/object_context.h"
#include "paper/paper_picture.h"
#include "paper/picture_export.h"

#include <QImage>
#include <QPainter>

#include <optional>

namespace lineara {

/// A family that tests build person by person and then put onto paper.
class PaperFamily
{
public:
    PaperFamily() = default;
    PaperFamily(const PaperFamily&) = delete;
    PaperFamily& operator=(const PaperFamily&) = delete;

    ObjectContext context{QUuid::createUuidV5(QUuid(), QStringLiteral("paper family"))};
    LeafNursery nursery{context};
    Pool& pool = context.insertPool();
    std::optional<FamilyScene> scene;

    Person& add(std::int32_t x, std::int32_t generation, const QString& name, std::optional<std::int32_t> born = {})
    {
        PersonValues values;
        values.name = name;
        values.x = x;
        values.generation = generation;
        values.birthYear = born;
        Person& person = context.insertPerson(values);
        pool.addPerson(person);
        return person;
    }

    /// Grandparents, a child of theirs with a partner, and a grandchild; a stranger stands apart.
    void addThreeGenerations()
    {
        Person& otto = add(0, 3, QStringLiteral("Otto Ancestor"), 1850);
        Person& emma = add(200, 3, QStringLiteral("Emma Ancestor"), 1852);
        Person& karl = add(100, 2, QStringLiteral("Karl Middle"), 1880);
        Person& lina = add(300, 2, QStringLiteral("Lina Married"), 1881);
        Person& max = add(200, 1, QStringLiteral("Max Youngest"), 1910);
        add(900, 1, QStringLiteral("Ulf Stranger"), 1900);
        otto.addPartner(emma);
        otto.addChild(karl);
        emma.addChild(karl);
        karl.addPartner(lina);
        karl.addChild(max);
        lina.addChild(max);
    }

    const FamilyScene& show()
    {
        pool.process();
        scene.emplace(pool);
        scene->addAllInRows();
        return *scene;
    }

    /// One row of as many persons, 160 points apart.
    void addRow(int persons)
    {
        for (int person = 0; person < persons; ++person)
            add(person * 160, 0, QStringLiteral("Person %1").arg(person));
    }
};

inline QByteArray bytesOf(const PaperPicture& picture, const PictureWish& wish)
{
    const auto bytes = pictureBytes(picture, wish);
    return bytes.failed() ? QByteArray() : bytes.value();
}

inline PictureWish pngWish(QSize pixels, PictureGround ground = PictureGround::White)
{
    PictureWish wish;
    wish.kind = PictureKind::Png;
    wish.pixels = pixels;
    wish.ground = ground;
    return wish;
}

/// Upright A4 with margins of 10 mm.
inline PaperSheet a4()
{
    return {{595, 842}, {28, 28, 28, 28}};
}

inline PosterSheets posterSheets(PosterWish::Sizing sizing, int pages)
{
    PosterSheets sheets;
    sheets.sheet = a4();
    sheets.wish.sizing = sizing;
    sheets.wish.pages = pages;
    return sheets;
}

} // namespace lineara
