// The commands of the File and the Family menu, given by mouse and keyboard: when they are offered, and that what they
// show comes and goes.

#include "document_life.h"

#include "elements/leaf_info_view.h"

#include <QAction>
#include <QDialog>
#include <QLabel>
#include <QMenu>
#include <QPlainTextEdit>
#include <QToolButton>

namespace lineara {

namespace {

class MenuCommands : public DocumentLife
{
protected:
    enum : std::size_t
    {
        grandma,
        grandpa,
        child
    };

    void openFamily() { use(opened(QStringLiteral("family.lineara"))); }
    void use(Document& family)
    {
        family_ = &family;
        window().setGeometry(0, 0, 1600, 960);
        ASSERT_TRUE(waitUntil([this] { return program_.isAtRest(); }));
    }

    DocumentWindow& window() { return family_->window(); }
    QMenu& fileMenu() { return *window().fileMenu(); }
    QMenu& familyMenu() { return *window().familyMenu(); }
    QMenu& exportMenu() { return *window().findChild<QMenu*>(QStringLiteral("exportMenu")); }

    static bool offers(const QMenu& menu, const char* command)
    {
        return OpenedProgram::offers(menu, QLatin1String(command));
    }
    static void chooseFrom(QMenu& menu, const char* command)
    {
        ASSERT_TRUE(waitUntil([&] { return menu.isVisible() && offers(menu, command); })) << command;
        Hand::click(OpenedProgram::at(menu, QLatin1String(command)));
    }
    void choose(QMenu& menu, const char* command)
    {
        Hand::click(program_.at(menu));
        chooseFrom(menu, command);
    }
    void chooseExport(const char* command)
    {
        choose(fileMenu(), "Export");
        chooseFrom(exportMenu(), command);
    }

    QDialog* shown(const char* dialog)
    {
        auto* const found = window().findChild<QDialog*>(QLatin1String(dialog));
        return found && found->isVisible() ? found : nullptr;
    }
    /// The dialog comes up, and Escape closes it.
    void expectToComeAndGo(const char* dialog)
    {
        ASSERT_TRUE(waitUntil([&] { return shown(dialog); })) << dialog;
        Hand::bringToFront(*shown(dialog));
        Hand::key(QStringLiteral("Escape"));
        ASSERT_TRUE(waitUntil([&] { return !shown(dialog); })) << dialog;
        Hand::bringToFront(window());
    }

    LeafView& node(std::size_t person) { return program_.node(person); }
    void select(std::size_t person)
    {
        Hand::click(program_.at(person, NodePart::Image));
        ASSERT_TRUE(waitUntil([&] { return node(person).infoView().isFocused(); }));
    }
    std::size_t highlighted()
    {
        std::size_t count = 0;
        for (std::size_t person = 0; person < program_.personCount(); ++person)
            count += node(person).isHighlighted() ? 1U : 0U;
        return count;
    }
    bool isVisible(const char* part) { return window().findChild<QWidget*>(QLatin1String(part))->isVisible(); }

private:
    Document* family_ = nullptr;
};

/// A family of another program's file, and the summary of what was read.
class ImportSummary : public MenuCommands
{
protected:
    void SetUp() override
    {
        open({files_.write(QStringLiteral("smith.ged"), "0 HEAD\n1 CHAR UTF-8\n"
                                                        "0 @I1@ INDI\n1 NAME Anna /Smith/\n1 OCCU Miller\n"
                                                        "0 @I2@ INDI\n1 NAME Bert /Smith/\n0 TRLR\n")});
        ASSERT_TRUE(waitUntil([this] { return count() == 1 && document().treeView(); }));
        use(document());
        Hand::bringToFront(window());
        Hand::click(OpenedProgram::at(*window().findChild<QToolButton*>(QStringLiteral("openingDetails"))));
        ASSERT_TRUE(waitUntil([this] { return shown("openingReport"); }));
        Hand::bringToFront(*shown("openingReport"));
    }
};

} // namespace

TEST_F(MenuCommands, PicturesAndPrintsAreOfferedOnceThereIsACanvas)
{
    documents().openNew();
    ASSERT_EQ(count(), 1U);
    ASSERT_FALSE(document().treeView());
    const QMenu& file = *document().window().fileMenu();
    const QMenu& exporting = *document().window().findChild<QMenu*>(QStringLiteral("exportMenu"));
    EXPECT_FALSE(offers(file, "Print"));
    EXPECT_FALSE(offers(exporting, "Picture"));
    EXPECT_TRUE(offers(exporting, "GEDCOM"));
    ASSERT_TRUE(waitUntil([this] { return document().treeView(); }));
    EXPECT_TRUE(offers(file, "Print"));
    EXPECT_TRUE(offers(exporting, "Picture"));
    EXPECT_TRUE(offers(exporting, "GEDCOM"));
}

TEST_F(MenuCommands, ExportsAndPrintsBeginWithADialogByMouse)
{
    openFamily();
    chooseExport("GEDCOM");
    expectToComeAndGo("exportDialog");
    chooseExport("Picture");
    expectToComeAndGo("exportPicture");
    choose(fileMenu(), "Print");
    expectToComeAndGo("printPicture");
}

TEST_F(MenuCommands, ExportsAndPrintsBeginWithADialogByKeyboard)
{
    openFamily();
    Hand::key(QStringLiteral("ctrl+e"));
    expectToComeAndGo("exportDialog");
    Hand::key(QStringLiteral("ctrl+shift+e"));
    expectToComeAndGo("exportPicture");
    Hand::key(QStringLiteral("ctrl+p"));
    expectToComeAndGo("printPicture");
}

TEST_F(MenuCommands, WhoseRelativesAreSoughtMustBeSelected)
{
    openFamily();
    for (const char* const command : {"Relationship", "Highlight Ancestors", "Highlight Descendants", "Show All"})
        EXPECT_FALSE(offers(familyMenu(), command)) << command;
    EXPECT_TRUE(waitUntil([this] { return offers(familyMenu(), "Checks"); }));
    select(child);
    for (const char* const command : {"Relationship", "Highlight Ancestors", "Highlight Descendants", "Checks"})
        EXPECT_TRUE(waitUntil([&] { return offers(familyMenu(), command); })) << command;
    EXPECT_FALSE(offers(familyMenu(), "Show All"));
}

TEST_F(MenuCommands, RelativesAreHighlightedByMouseAndKeyboardUntilEscape)
{
    openFamily();
    select(child);
    choose(familyMenu(), "Highlight Ancestors");
    ASSERT_TRUE(waitUntil([this] { return highlighted() == 3; }));
    EXPECT_TRUE(node(grandma).isHighlighted());
    EXPECT_TRUE(offers(familyMenu(), "Show All"));
    Hand::key(QStringLiteral("ctrl+shift+d"));
    ASSERT_TRUE(waitUntil([this] { return highlighted() == 2; }));
    EXPECT_FALSE(node(grandma).isHighlighted());
    Hand::key(QStringLiteral("Escape"));
    ASSERT_TRUE(waitUntil([this] { return highlighted() == 0; }));
    EXPECT_TRUE(waitUntil([this] { return !offers(familyMenu(), "Show All"); }));
    Hand::key(QStringLiteral("ctrl+shift+a"));
    ASSERT_TRUE(waitUntil([this] { return highlighted() == 3; }));
    choose(familyMenu(), "Show All");
    EXPECT_TRUE(waitUntil([this] { return highlighted() == 0; }));
}

TEST_F(MenuCommands, ARelationshipIsAskedForInADialogAndToldBeneathTheFamily)
{
    openFamily();
    select(child);
    choose(familyMenu(), "Relationship");
    expectToComeAndGo("personChooser");
    EXPECT_FALSE(isVisible("relationshipStrip"));
    Hand::key(QStringLiteral("ctrl+r"));
    ASSERT_TRUE(waitUntil([this] { return shown("personChooser"); }));
    Hand::bringToFront(*shown("personChooser"));
    Hand::type(QStringLiteral("grandpa"));
    Hand::key(QStringLiteral("Return"));
    ASSERT_TRUE(waitUntil([this] { return isVisible("relationshipStrip"); }));
    EXPECT_EQ(window().findChild<QLabel*>(QStringLiteral("relationshipSentence"))->text(),
              u"Grandpa is <b>parent</b> of Child");
    Hand::bringToFront(window());
    Hand::key(QStringLiteral("Escape"));
    EXPECT_TRUE(waitUntil([this] { return !isVisible("relationshipStrip"); }));
}

TEST_F(MenuCommands, ChecksComeAndGoWithTheirCommand)
{
    openFamily();
    choose(familyMenu(), "Checks");
    ASSERT_TRUE(waitUntil([this] { return isVisible("checksPanel"); }));
    const auto* const summary = window().findChild<QLabel*>(QStringLiteral("checksSummary"));
    EXPECT_TRUE(waitUntil([&] { return summary->text().startsWith(QStringLiteral("No contradictions")); }));
    Hand::key(QStringLiteral("ctrl+shift+k"));
    EXPECT_TRUE(waitUntil([this] { return !isVisible("checksPanel"); }));
}

TEST_F(ImportSummary, LeavesTheFamilyToItsUser)
{
    EXPECT_FALSE(shown("openingReport")->isModal());
    // Beside the summary, which lies upon the middle of its window.
    shown("openingReport")->move(800, 300);
    select(0);
    EXPECT_TRUE(shown("openingReport"));
}

TEST_F(ImportSummary, IsNamedForThoseWhoHearIt)
{
    EXPECT_FALSE(shown("openingReport")->findChild<QPlainTextEdit*>()->accessibleName().isEmpty());
}

TEST_F(ImportSummary, LetsTheFamilyBePrintedAndExported)
{
    Hand::key(QStringLiteral("ctrl+p"));
    expectToComeAndGo("printPicture");
    Hand::bringToFront(*shown("openingReport"));
    Hand::key(QStringLiteral("ctrl+shift+e"));
    expectToComeAndGo("exportPicture");
    Hand::bringToFront(*shown("openingReport"));
    Hand::key(QStringLiteral("ctrl+e"));
    expectToComeAndGo("exportDialog");
    EXPECT_TRUE(shown("openingReport"));
}

TEST_F(ImportSummary, IsClosedByTheKeysThatCloseWindowsAndNothingElseIs)
{
    Hand::key(QStringLiteral("ctrl+w"));
    EXPECT_TRUE(waitUntil([this] { return !shown("openingReport"); }));
    EXPECT_TRUE(window().isVisible());
    EXPECT_EQ(count(), 1U);
    Hand::bringToFront(window());
    Hand::click(OpenedProgram::at(*window().findChild<QToolButton*>(QStringLiteral("openingDetails"))));
    expectToComeAndGo("openingReport");
}

} // namespace lineara
