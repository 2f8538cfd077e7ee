#pragma once

#include "model/object_context.h"
#include "store/family_file.h"

#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace lineara {

/// A folder that is gone after the test, with files written into it.
class TestFiles
{
public:
    QString path(const QString& name) const { return folder_.filePath(name); }

    QString write(const QString& name, const QByteArray& bytes) const
    {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }

    /// A picture of one colour.
    QString picture(const QString& name, QSize size) const
    {
        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::darkGreen);
        EXPECT_TRUE(image.save(path(name)));
        return path(name);
    }

    QString save(const QString& name, const ObjectContext& family) const
    {
        EXPECT_TRUE(saveFamilyFile(family, path(name)));
        return path(name);
    }

private:
    QTemporaryDir folder_;
};

inline QByteArray textOf(const ObjectContext& family)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    EXPECT_TRUE(writeFamily(family, buffer));
    return buffer.data();
}

/// Two grandparents, their child, the child's partner, and the couple's child: z102 to z106.
inline std::unique_ptr<ObjectContext> threeGenerations()
{
    auto context = std::make_unique<ObjectContext>();
    Pool& pool = context->insertPool();
    std::vector<Person*> persons;
    for (const char16_t* name : {u"Grandma", u"Grandpa", u"Child", u"Partner", u"Kid"}) {
        PersonValues values;
        values.name = QString::fromUtf16(name);
        persons.push_back(&context->insertPerson(std::move(values)));
        pool.addPerson(*persons.back());
    }
    persons[0]->addPartner(*persons[1]);
    persons[0]->addChild(*persons[2]);
    persons[1]->addChild(*persons[2]);
    persons[2]->addPartner(*persons[3]);
    persons[2]->addChild(*persons[4]);
    persons[3]->addChild(*persons[4]);
    return context;
}

} // namespace lineara
