#include "hand_test.h"

#include "canvas/tree_view.h"
#include "document/document_window.h"

#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QMenu>
#include <QPushButton>
#include <QRegularExpression>
#include <QScreen>

#include <iostream>

namespace lineara {

HandTest::HandTest()
{
    Hand::bringToFront(program_.startWindow());
}

void HandTest::TearDown()
{
    if (!HasFailure())
        return;
    const char* const test = testing::UnitTest::GetInstance()->current_test_info()->name();
    const QString picture = QStringLiteral("%1.png").arg(QLatin1String(test));
    QApplication::primaryScreen()->grabWindow().save(picture);
    std::cerr << "what the screen showed last is in " << QFileInfo(picture).absoluteFilePath().toStdString() << '\n';
}

QMenu& HandTest::editMenu() const
{
    return *window_->editMenu();
}

void HandTest::beginByMouse()
{
    auto* const button = program_.startWindow().findChild<QPushButton*>(QStringLiteral("newButton"));
    Hand::click(OpenedProgram::at(*button));
    familyAppears();
}

void HandTest::beginByKeys()
{
    Hand::key(QStringLiteral("ctrl+n"));
    familyAppears();
}

void HandTest::familyAppears()
{
    ASSERT_TRUE(waitUntil([&] { return program_.familyWindow(); }));
    window_ = program_.familyWindow();
    window_->setGeometry(0, 0, 1600, 960);
    Hand::bringToFront(*window_);
}

void HandTest::chooseByMouse(QMenu& menu, const QString& command)
{
    Hand::click(program_.at(menu));
    // What was done just before may not have reached the menu yet.
    ASSERT_TRUE(waitUntil([&] { return menu.isVisible() && OpenedProgram::offers(menu, command); }))
        << command.toStdString();
    Hand::click(OpenedProgram::at(menu, command));
    ASSERT_TRUE(waitUntil([&] { return !menu.isVisible(); })) << command.toStdString();
}

void HandTest::addByMouse()
{
    const std::size_t before = program_.personCount();
    chooseByMouse(*window_->personMenu(), QStringLiteral("Add Person"));
    ASSERT_TRUE(waitUntil([&] { return program_.personCount() == before + 1; }));
}

void HandTest::placeByMouse(int x)
{
    const std::size_t person = program_.personCount() - 1;
    const Person& placed = program_.node(person).person();
    const QPoint grip = program_.at(person, NodePart::Image);
    Hand::drag(grip, grip + QPoint(x - placed.x().value_or(0), 0));
    ASSERT_TRUE(waitUntil([&] { return placed.x() == x; })) << "person " << person;
}

void HandTest::addByKeys(const QString& name)
{
    const std::size_t before = program_.personCount();
    Hand::key(QStringLiteral("ctrl+shift+n"));
    ASSERT_TRUE(waitUntil([&] { return program_.personCount() == before + 1; })) << name.toStdString();
    nameByKeys(name);
}

void HandTest::nameByKeys(const QString& name)
{
    ASSERT_TRUE(waitUntil([] {
        const QWidget* const field = QApplication::focusWidget();
        return field && field->objectName() == QStringLiteral("name");
    })) << name.toStdString();
    Hand::type(name);
    Hand::key(QStringLiteral("Return"));
    const Person& newest = program_.node(program_.personCount() - 1).person();
    ASSERT_TRUE(waitUntil([&] { return newest.name() == name; })) << newest.name().value_or(QString()).toStdString();
}

void HandTest::dragToLink(std::size_t from, NodePart handle, std::size_t to)
{
    scrollToByMouse(to);
    Hand::drag(program_.at(from, handle), program_.at(to, NodePart::Image));
    ASSERT_TRUE(waitUntil([&] { return program_.link(from, to) && program_.isAtRest(); })) << from << " to " << to;
}

void HandTest::scrollToByMouse(std::size_t person)
{
    const QWidget& viewport = *program_.canvas().viewport();
    const int lowest = viewport.mapToGlobal(viewport.rect().bottomLeft()).y();
    const auto height = [&] { return program_.at(person, NodePart::ChildHandle).y(); };
    while (height() > lowest) {
        const int before = height();
        Hand::wheelDown(viewport.mapToGlobal(viewport.rect().center()));
        ASSERT_TRUE(waitUntil([&] { return height() < before; }));
    }
}

void HandTest::linkByKeys(const QString& keys, const QString& other)
{
    Hand::key(keys);
    ASSERT_TRUE(waitUntil([&] { return program_.dialog(); })) << keys.toStdString();
    Hand::bringToFront(*program_.dialog());
    Hand::type(other);
    Hand::key(QStringLiteral("Return"));
    ASSERT_TRUE(waitUntil([&] { return !program_.dialog(); })) << other.toStdString();
    Hand::bringToFront(*window_);
}

void HandTest::expectGenerations(const Generations& expected)
{
    EXPECT_TRUE(waitUntil([&] { return program_.generations() == expected && program_.isAtRest(); }));
    ASSERT_EQ(program_.generations(), expected);
}

QString HandTest::savedByMouse()
{
    chooseByMouse(*window_->fileMenu(), QStringLiteral("Save"));
    if (!QFile::exists(file())) {
        EXPECT_TRUE(waitUntil([&] { return program_.dialog(); }));
        auto* const buttons = program_.dialog()->findChild<QDialogButtonBox*>();
        Hand::click(OpenedProgram::at(*buttons->button(QDialogButtonBox::Save)));
    }
    return textOfFile();
}

QString HandTest::savedByKeys()
{
    Hand::key(QStringLiteral("ctrl+s"));
    if (!QFile::exists(file())) {
        EXPECT_TRUE(waitUntil([&] { return program_.dialog(); }));
        Hand::bringToFront(*program_.dialog());
        Hand::key(QStringLiteral("Return"));
        EXPECT_TRUE(waitUntil([&] { return !program_.dialog(); }));
        Hand::bringToFront(*window_);
    }
    return textOfFile();
}

QString HandTest::textOfFile()
{
    EXPECT_TRUE(waitUntil([&] { return QFile::exists(file()) && !window_->isWindowModified(); }));
    QFile saved(file());
    EXPECT_TRUE(saved.open(QIODevice::ReadOnly));
    return QString::fromUtf8(saved.readAll());
}

std::string expectedText(const char* file, Named named)
{
    QFile data(QStringLiteral(LINEARA_TEST_DATA "/editing/%1").arg(QLatin1String(file)));
    EXPECT_TRUE(data.open(QIODevice::ReadOnly));
    QString text = QString::fromUtf8(data.readAll());
    if (named == Named::No)
        text.remove(QRegularExpression(QStringLiteral(" *<attribute name=\"name\"[^\n]*\n")));
    return text.toStdString();
}

std::string marked(QString text)
{
    text.replace(QRegularExpression(QStringLiteral("<UUID>[-0-9a-f]{36}</UUID>")), QStringLiteral("<UUID>#</UUID>"));
    text.replace(QRegularExpression(QStringLiteral("(name=\"x\" type=\"int32\">)\\d+<")), QStringLiteral("\\1#<"));
    return text.toStdString();
}

} // namespace lineara
