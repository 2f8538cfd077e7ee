#include "family_texts.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

namespace lineara::test {

namespace {

/// The objects of the file as Python's XML reader sees them.
QJsonArray objectsByPython(const ObjectContext& family)
{
    const QTemporaryDir folder;
    const auto path = folder.filePath(u"family.lineara"_qs);
    EXPECT_TRUE(saveFamilyFile(family, path));
    QProcess python;
    python.start(QStringLiteral(LINEARA_PYTHON), {QStringLiteral(LINEARA_STORE_TESTS "/read_family.py"), path});
    EXPECT_TRUE(python.waitForFinished());
    EXPECT_EQ(python.exitCode(), 0) << python.readAllStandardError().toStdString();
    return QJsonDocument::fromJson(python.readAllStandardOutput()).array();
}

} // namespace

TEST(ForeignReader, FindsTheSameTexts)
{
    const QStringList texts = {
        u" "_qs, u"\r\n\t a\r"_qs, u""_qs, u"<&>\"' ]]>"_qs, u"Zoë 王 \U0001F468"_qs, u"a\u0085b\u2028c"_qs, u"\n"_qs};
    ObjectContext family;
    auto& pool = family.insertPool();
    for (const auto& text : texts) {
        PersonValues values;
        values.name = text;
        pool.addPerson(family.insertPerson(values));
    }
    PersonValues unnamed;
    pool.addPerson(family.insertPerson(unnamed));

    const auto objects = objectsByPython(family);
    ASSERT_EQ(objects.size(), texts.size() + 2);
    for (qsizetype i = 0; i < texts.size(); ++i)
        EXPECT_EQ(objects[i + 1][2][u"name"].toString(), texts[i]);
    EXPECT_TRUE(objects.last()[2][u"name"].isUndefined());
}

TEST(ForeignReader, FindsEveryLinkFromBothSides)
{
    const auto family = loaded(smallFamily());
    const auto objects = objectsByPython(*family.context);
    ASSERT_EQ(objects.size(), 5);
    EXPECT_EQ(objects[0][0].toString(), u"POOL"_qs);
    EXPECT_EQ(objects[0][3][u"persons"].toString(), u"z102 z103 z104 z105"_qs);
    EXPECT_EQ(objects[1][1].toString(), u"z102"_qs);
    EXPECT_EQ(objects[1][3][u"children"].toString(), u"z104 z105"_qs);
    EXPECT_EQ(objects[2][3][u"partners"].toString(), u"z102"_qs);
    EXPECT_EQ(objects[4][3][u"parents"].toString(), u"z103 z102"_qs);
    EXPECT_EQ(objects[4][3][u"pool"].toString(), u"z101"_qs);
}

} // namespace lineara::test
