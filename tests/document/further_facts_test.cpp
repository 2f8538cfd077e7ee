// What an imported file tells of a person beyond the person's own fields.

#include "document/document_window.h"
#include "edited_document.h"
#include "further_facts_dialog.h"

#include <QDialog>
#include <QLabel>
#include <QTreeWidget>

namespace lineara {
namespace {

const char* const smith = "0 HEAD\n"
                          "1 CHAR UTF-8\n"
                          "0 @I1@ INDI\n"
                          "1 NAME Anna /Smith/\n"
                          "1 OCCU Miller\n"
                          "2 PLAC Ely\n"
                          "1 BIRT\n"
                          "2 DATE 1850\n"
                          "2 PLAC Norwich\n"
                          "0 @I2@ INDI\n"
                          "1 NAME Bert /Smith/\n"
                          "0 TRLR\n";

class ImportedDocument : public testing::Test
{
protected:
    ImportedDocument()
    {
        const TestFiles files;
        auto opened = Document::open(files.write(QStringLiteral("smith.ged"), smith));
        document = std::move(opened.value());
        document->window().show();
        EXPECT_TRUE(settle(*document));
    }

    ~ImportedDocument() override
    {
        document.reset();
        QApplication::processEvents();
    }

    const Person& person(std::size_t at) const { return *document->pool().persons()[at]; }
    QDialog* dialog() const { return document->window().findChild<QDialog*>(QStringLiteral("furtherFactsDialog")); }

    std::unique_ptr<Document> document;
};

TEST_F(ImportedDocument, CountsWhatNoFieldHolds)
{
    EXPECT_EQ(countFurtherFacts(person(0)), 3);
    EXPECT_EQ(countFurtherFacts(person(1)), 0);
}

TEST_F(ImportedDocument, ListsItWithWhereItComesFrom)
{
    showFurtherFacts(document->window(), person(0));
    ASSERT_NE(dialog(), nullptr);
    const QString heading = dialog()->findChild<QLabel*>()->text();
    EXPECT_TRUE(heading.contains(QStringLiteral("smith.ged"))) << heading.toStdString();
    EXPECT_TRUE(heading.contains(QStringLiteral("line 3"))) << heading.toStdString();
    const auto* const list = dialog()->findChild<QTreeWidget*>();
    EXPECT_EQ(list->accessibleName(), QStringLiteral("Further Facts"));
    ASSERT_EQ(list->topLevelItemCount(), 2);
    const QTreeWidgetItem& occupation = *list->topLevelItem(0);
    EXPECT_EQ(occupation.text(1), QStringLiteral("Miller"));
    ASSERT_EQ(occupation.childCount(), 1);
    EXPECT_EQ(occupation.child(0)->text(1), QStringLiteral("Ely"));
    EXPECT_EQ(list->topLevelItem(1)->text(1), QStringLiteral("Norwich"));
}

TEST_F(ImportedDocument, HasNothingToShowOfSomebodyWhoWasMadeHere)
{
    showFurtherFacts(document->window(), document->context().insertPerson());
    EXPECT_EQ(dialog(), nullptr);
}

} // namespace
} // namespace lineara
