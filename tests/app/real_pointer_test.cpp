// The family of two grandparents, their child, its partner and the couple's child, made by a hand at a real mouse.

#include "canvas/tree_view.h"
#include "document/document_window.h"
#include "hand.h"
#include "hang_guard.h"
#include "opened_program.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFile>
#include <QFileInfo>
#include <QMenu>
#include <QPushButton>
#include <QRegularExpression>
#include <QScreen>

#include <gtest/gtest.h>

#include <iostream>

namespace lineara {

namespace {

enum : std::size_t
{
    grandmother,
    grandfather,
    child,
    partner,
    kid
};

constexpr auto unplaced = std::nullopt;

class RealPointer : public testing::Test
{
protected:
    RealPointer() { Hand::bringToFront(program_.startWindow()); }

    void TearDown() override
    {
        if (!HasFailure())
            return;
        const QString picture =
            QStringLiteral("%1.png").arg(QLatin1String(testing::UnitTest::GetInstance()->current_test_info()->name()));
        QApplication::primaryScreen()->grabWindow().save(picture);
        std::cerr << "what the screen showed last is in " << QFileInfo(picture).absoluteFilePath().toStdString()
                  << '\n';
    }

    void beginFamily()
    {
        auto* const button = program_.startWindow().findChild<QPushButton*>(QStringLiteral("newButton"));
        Hand::click(OpenedProgram::at(*button));
        familyAppears();
    }

    void familyAppears()
    {
        ASSERT_TRUE(waitUntil([&] { return program_.familyWindow(); }));
        window_ = program_.familyWindow();
        window_->setGeometry(0, 0, 1600, 960);
        Hand::bringToFront(*window_);
    }

    void choose(QMenu& menu, const QString& command)
    {
        Hand::click(program_.at(menu));
        ASSERT_TRUE(waitUntil([&] { return menu.isVisible(); })) << command.toStdString();
        Hand::click(OpenedProgram::at(menu, command));
        ASSERT_TRUE(waitUntil([&] { return !menu.isVisible(); })) << command.toStdString();
    }
    void edit(const QString& command) { choose(*window_->editMenu(), command); }

    /// Adds a person and pulls it to a column of its own.
    void addPerson()
    {
        const std::size_t person = program_.personCount();
        edit(QStringLiteral("Add Person"));
        ASSERT_TRUE(waitUntil([&] { return program_.personCount() == person + 1; }));
        const int before = program_.node(person).person().x().value_or(-1);
        const QPoint grip = program_.at(person, NodePart::Image);
        const int wanted = 20 + static_cast<int>(person) * 200;
        Hand::drag(grip, grip + QPoint(wanted - before, 0));
        ASSERT_TRUE(waitUntil([&] { return program_.node(person).person().x() == wanted; })) << person;
    }

    void link(std::size_t from, NodePart handle, std::size_t to, const Generations& expected)
    {
        Hand::drag(program_.at(from, handle), program_.at(to, NodePart::Image));
        expectGenerations(expected);
    }

    void expectGenerations(const Generations& expected)
    {
        EXPECT_TRUE(waitUntil([&] { return program_.generations() == expected && program_.isAtRest(); }));
        ASSERT_EQ(program_.generations(), expected);
    }

    void save()
    {
        choose(*window_->fileMenu(), QStringLiteral("Save"));
        if (!QFile::exists(file())) {
            ASSERT_TRUE(waitUntil([&] { return program_.dialog(); }));
            auto* const buttons = program_.dialog()->findChild<QDialogButtonBox*>();
            Hand::click(OpenedProgram::at(*buttons->button(QDialogButtonBox::Save)));
        }
    }

    void addByKeys(const QString& name)
    {
        const std::size_t person = program_.personCount();
        Hand::key(QStringLiteral("ctrl+shift+n"));
        ASSERT_TRUE(waitUntil([&] { return program_.personCount() == person + 1; })) << name.toStdString();
        ASSERT_TRUE(waitUntil([&] { return program_.node(person).infoView().isFocused(); }));
    }

    void linkByKeys(const QString& command, int allowedBefore, const Generations& expected)
    {
        Hand::key(command);
        ASSERT_TRUE(waitUntil([&] { return program_.dialog(); }));
        Hand::bringToFront(*program_.dialog());
        while (allowedBefore-- > 0)
            Hand::key(QStringLiteral("Down"));
        Hand::key(QStringLiteral("Return"));
        ASSERT_TRUE(waitUntil([&] { return !program_.dialog(); }));
        Hand::bringToFront(*window_);
        expectGenerations(expected);
    }

    QString savedByKeys()
    {
        Hand::key(QStringLiteral("ctrl+s"));
        if (!QFile::exists(file())) {
            EXPECT_TRUE(waitUntil([&] { return program_.dialog(); }));
            Hand::bringToFront(*program_.dialog());
            Hand::key(QStringLiteral("Return"));
            EXPECT_TRUE(waitUntil([&] { return !program_.dialog(); }));
            Hand::bringToFront(*window_);
        }
        return textAfterSaving();
    }

    QString file() const { return program_.homePath(QStringLiteral("Lineara.lineara")); }

    QString savedText()
    {
        save();
        return textAfterSaving();
    }

    QString textAfterSaving()
    {
        EXPECT_TRUE(waitUntil([&] { return QFile::exists(file()) && !window_->isWindowModified(); }));
        QFile saved(file());
        EXPECT_TRUE(saved.open(QIODevice::ReadOnly));
        return QString::fromUtf8(saved.readAll());
    }

    HangGuard guard_;
    OpenedProgram program_;
    DocumentWindow* window_ = nullptr;
};

enum class Named : bool
{
    No,
    Yes
};

/// What is to be in the file, with the marks of marked(). A hand at the mouse alone gives nobody a name.
std::string expected(const char* file, Named named)
{
    QFile data(QStringLiteral(LINEARA_TEST_DATA "/editing/%1").arg(QLatin1String(file)));
    EXPECT_TRUE(data.open(QIODevice::ReadOnly));
    QString text = QString::fromUtf8(data.readAll());
    if (named == Named::No)
        text.remove(QRegularExpression(QStringLiteral(" *<attribute name=\"name\"[^\n]*\n")));
    return text.toStdString();
}

/// The text with marks in place of what is different each time: the family's UUID, and where its persons stand.
std::string marked(QString text)
{
    text.replace(QRegularExpression(QStringLiteral("<UUID>[-0-9a-f]{36}</UUID>")), QStringLiteral("<UUID>#</UUID>"));
    text.replace(QRegularExpression(QStringLiteral("(name=\"x\" type=\"int32\">)\\d+<")), QStringLiteral("\\1#<"));
    return text.toStdString();
}

} // namespace

TEST_F(RealPointer, AFamilyIsBuiltByTheKeyboardAlone)
{
    Hand::key(QStringLiteral("ctrl+n"));
    familyAppears();
    addByKeys(QStringLiteral("Grandmother"));
    addByKeys(QStringLiteral("Grandfather"));
    linkByKeys(QStringLiteral("ctrl+shift+p"), 0, {1, 1});
    addByKeys(QStringLiteral("Child"));
    linkByKeys(QStringLiteral("ctrl+shift+c"), 0, {2, 2, 1});
    linkByKeys(QStringLiteral("ctrl+shift+c"), 0, {2, 2, 1});
    addByKeys(QStringLiteral("Partner"));
    linkByKeys(QStringLiteral("ctrl+shift+p"), 2, {2, 2, 1, 1});
    addByKeys(QStringLiteral("Kid"));
    linkByKeys(QStringLiteral("ctrl+shift+c"), 2, {3, 3, 2, 2, 1});
    linkByKeys(QStringLiteral("ctrl+shift+c"), 2, {3, 3, 2, 2, 1});
    const QString built = savedByKeys();
    EXPECT_EQ(marked(built), expected("family.lineara", Named::No));

    Hand::key(QStringLiteral("Delete"));
    expectGenerations({2, 2, 1, 1});
    const QString withoutKid = savedByKeys();
    EXPECT_EQ(marked(withoutKid), expected("without_kid.lineara", Named::No));
    Hand::key(QStringLiteral("ctrl+z"));
    expectGenerations({3, 3, 2, 2, 1});
    EXPECT_EQ(savedByKeys(), built);
    Hand::key(QStringLiteral("ctrl+shift+z"));
    expectGenerations({2, 2, 1, 1});
    EXPECT_EQ(savedByKeys(), withoutKid);
}

} // namespace lineara
