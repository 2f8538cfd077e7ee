#include "gedcom_check.h"

#include <QDirIterator>
#include <QFile>

#include <gtest/gtest.h>

namespace lineara {
namespace {

/// Every file below the folder, in any order.
std::size_t checkAll(const QString& folder)
{
    std::size_t files = 0;
    QDirIterator names(folder, QDir::Files, QDirIterator::Subdirectories);
    while (names.hasNext()) {
        QFile file(names.next());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << file.fileName().toStdString();
        EXPECT_EQ(checkGedcom(file.readAll()), QString()) << file.fileName().toStdString();
        ++files;
    }
    return files;
}

TEST(GedcomCorpus, NothingBreaksTheImport)
{
    EXPECT_GE(checkAll(QStringLiteral(LINEARA_CORPUS "/gedcom")), 20u);
    EXPECT_GE(checkAll(QStringLiteral(LINEARA_TEST_DATA "/gedcom")), 13u);
}

} // namespace
} // namespace lineara
