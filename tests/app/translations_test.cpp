// The program in German: which language is spoken, and that no two commands of a menu share an underlined letter.

#include "translations.h"

#include "opened_program.h"

#include "contact_mail.h"
#include "document/document_window.h"
#include "hand.h"
#include "kin_words.h"

#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTranslator>

#include <gtest/gtest.h>

using namespace lineara;

namespace {

/// Speaks German for as long as it lives.
class German
{
public:
    German()
    {
        EXPECT_TRUE(translator_.load(QStringLiteral("lineara_de"), QStringLiteral(":/i18n")));
        QCoreApplication::installTranslator(&translator_);
    }
    ~German() { QCoreApplication::removeTranslator(&translator_); }
    German(const German&) = delete;
    German& operator=(const German&) = delete;

private:
    QTranslator translator_;
};

/// The underlined letter; empty if there is none.
QString mark(const QString& text)
{
    const qsizetype at = QString(text).replace(QStringLiteral("&&"), QStringLiteral("  ")).indexOf(QLatin1Char('&'));
    return at < 0 ? QString() : text.mid(at + 1, 1).toLower();
}

/// No two commands in a menu share a letter. Windows and files, listed by name, have none.
void expectOwnLetters(const QList<QAction*>& actions)
{
    QStringList taken;
    for (const QAction* const action : actions) {
        if (action->isSeparator() || !action->isVisible())
            continue;
        const QString letter = mark(action->text());
        EXPECT_FALSE(!letter.isEmpty() && taken.contains(letter)) << action->text().toStdString();
        taken.append(letter);
        if (action->menu())
            expectOwnLetters(action->menu()->actions());
    }
}

DocumentWindow& newFamily(OpenedProgram& program)
{
    program.startWindow().findChild<QPushButton*>(QStringLiteral("newButton"))->click();
    EXPECT_TRUE(waitUntil([&] { return program.familyWindow(); }));
    return *program.familyWindow();
}

} // namespace

TEST(Translations, TheFirstLanguageThatTheProgramSpeaksIsSpoken)
{
    const auto spoken = [](const QString& wanted) { return spokenLanguage(wanted.split(QLatin1Char(' '))); };
    EXPECT_EQ(spoken(QStringLiteral("de-AT de en")), QStringLiteral("de"));
    EXPECT_EQ(spoken(QStringLiteral("en-GB en de")), QStringLiteral("en"));
    EXPECT_EQ(spoken(QStringLiteral("fr-FR de")), QStringLiteral("de"));
    EXPECT_EQ(spoken(QStringLiteral("fr")), QStringLiteral("en"));
    EXPECT_EQ(spokenLanguage({}), QStringLiteral("en"));
}

TEST(Translations, RelationshipsAreToldInGermanAsGermanTellsThem)
{
    using kinship::Sex;
    const German german;
    const auto words = [](std::uint32_t up, std::uint32_t down, Sex sex) {
        return bloodWords({up, down, kinship::Shared::BothParents, {}}, sex);
    };
    EXPECT_EQ(words(3, 0, Sex::Female), QStringLiteral("Urgroßmutter"));
    EXPECT_EQ(words(5, 0, Sex::Male), QStringLiteral("3-fach-Urgroßvater"));
    EXPECT_EQ(words(1, 0, Sex::Unknown), QStringLiteral("Elternteil"));
    EXPECT_EQ(words(1, 1, Sex::Female), QStringLiteral("Schwester"));
    EXPECT_EQ(words(2, 1, Sex::Male), QStringLiteral("Onkel"));
    EXPECT_EQ(words(2, 2, Sex::Female), QStringLiteral("Cousine 1. Grades"));
    EXPECT_EQ(words(3, 3, Sex::Male), QStringLiteral("Cousin 2. Grades"));
    EXPECT_EQ(words(2, 2, Sex::Unknown), QStringLiteral("Cousine oder Cousin 1. Grades"));
    EXPECT_EQ(words(3, 2, Sex::Male), QStringLiteral("Onkel 2. Grades")) << "a cousin of a parent";
    EXPECT_EQ(words(2, 3, Sex::Female), QStringLiteral("Nichte 2. Grades")) << "a cousin's child";
    EXPECT_EQ(words(2, 3, Sex::Unknown), QStringLiteral("Nichte oder Neffe 2. Grades"));
    EXPECT_EQ(words(2, 4, Sex::Male), QStringLiteral("Großneffe 2. Grades"));
    const kinship::InLaw sibling{kinship::Marriage::OfFirst, {1, 1, kinship::Shared::BothParents, {}}};
    EXPECT_EQ(inLawWords(sibling, Sex::Male, Sex::Female), QStringLiteral("Schwager"));
    EXPECT_EQ(partnerWords(Sex::Female), QStringLiteral("Ehefrau"));
}

TEST(Translations, EveryMenuHasLettersOfItsOwn)
{
    OpenedProgram program;
    expectOwnLetters(qobject_cast<QMainWindow*>(&program.startWindow())->menuBar()->actions());
    expectOwnLetters(newFamily(program).menuBar()->actions());
}

TEST(Translations, EveryMenuHasLettersOfItsOwnInGerman)
{
    const German german;
    OpenedProgram program;
    expectOwnLetters(qobject_cast<QMainWindow*>(&program.startWindow())->menuBar()->actions());
    const DocumentWindow& family = newFamily(program);
    expectOwnLetters(family.menuBar()->actions());
    EXPECT_EQ(withoutMnemonic(family.editMenu()->title()), QStringLiteral("Bearbeiten"));
}

TEST(Translations, SayOneThingInTheSingularAndManyInThePlural)
{
    const German german;
    const auto said = [](int count) {
        return QCoreApplication::translate(
            "ReportTexts", "The file was damaged and has been mended in memory: %n remark(s).", nullptr, count);
    };
    EXPECT_TRUE(said(1).endsWith(QStringLiteral("1 Bemerkung.")));
    EXPECT_TRUE(said(2).endsWith(QStringLiteral("2 Bemerkungen.")));
}
