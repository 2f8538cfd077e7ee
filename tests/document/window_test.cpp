// The window beside the family: what it does with keys that come too early, and how it follows the desktop.

#include "edited_document.h"

#include "document/elided_label.h"

#include <QAction>
#include <QDialog>
#include <QDropEvent>
#include <QFrame>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QScrollBar>
#include <QSettings>
#include <QStatusBar>
#include <QTest>

using namespace lineara;

namespace {

QLineEdit& searchField(const DocumentWindow& window)
{
    return *window.findChild<QLineEdit*>(QStringLiteral("searchField"));
}

/// The keys that reach a widget, as their texts.
class Typed : public QObject
{
public:
    QString text;

private:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        // Others get events from other threads, which are handed over in a way of their own.
        if (dynamic_cast<TreeView*>(watched) && event->type() == QEvent::KeyPress)
            text += static_cast<QKeyEvent*>(event)->text();
        return false;
    }
};

/// What a label draws upon what is beneath it.
QImage wordsOf(QWidget& label)
{
    QImage drawn(label.size(), QImage::Format_ARGB32_Premultiplied);
    drawn.fill(Qt::white);
    label.render(&drawn, {}, {}, QWidget::DrawChildren);
    return drawn;
}

class DarkTheme
{
public:
    DarkTheme()
    {
        QPalette dark(QColor(0x30, 0x30, 0x30));
        dark.setColor(QPalette::Base, QColor(0x20, 0x20, 0x20));
        // As themes have it that tell nothing of this colour.
        dark.setColor(QPalette::PlaceholderText, QColor(0, 0, 0, 128));
        QApplication::setPalette(dark);
    }
    ~DarkTheme() { QApplication::setPalette(QPalette()); }
    DarkTheme(const DarkTheme&) = delete;
    DarkTheme& operator=(const DarkTheme&) = delete;
};

} // namespace

TEST(DocumentWindow, WhatIsTypedWhileAFamilyIsWorkedOutReachesTheCanvasAndNotTheSearchField)
{
    Typed typed;
    qApp->installEventFilter(&typed);
    OpenedFamily family;
    family.context = threeGenerations();
    family.pool = family.context->allPools().front();
    const auto document = Document::of(std::move(family));
    document->poolProcessing().setHeld(true);
    DocumentWindow& window = document->window();
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    ASSERT_FALSE(document->treeView());
    ASSERT_TRUE(window.focusWidget());
    QTest::keyClicks(window.focusWidget(), QStringLiteral("ann"));
    EXPECT_EQ(typed.text, QString());
    document->poolProcessing().setHeld(false);
    ASSERT_TRUE(QTest::qWaitFor([&] { return document->treeView() != nullptr; }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return typed.text == QStringLiteral("ann"); }));
    EXPECT_EQ(searchField(window).text(), QString());
    EXPECT_TRUE(document->treeView()->hasFocus());
}

TEST(DocumentWindow, WhoSearchesAlreadyGoesOnWhenTheFamilyComes)
{
    OpenedFamily family;
    family.context = threeGenerations();
    family.pool = family.context->allPools().front();
    const auto opened = Document::of(std::move(family));
    opened->poolProcessing().setHeld(true);
    opened->window().show();
    opened->window().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&opened->window()));
    searchField(opened->window()).setFocus(Qt::MouseFocusReason);
    opened->poolProcessing().setHeld(false);
    ASSERT_TRUE(QTest::qWaitFor([&] { return opened->treeView() != nullptr; }));
    QApplication::processEvents();
    EXPECT_TRUE(searchField(opened->window()).hasFocus());
}

TEST(DocumentWindow, LeavesTheKeyboardToTheDialogThatBlocksIt)
{
    const EditedDocument edited(ListOf::Document);
    DocumentWindow& window = edited.document->window();
    QDialog beside(&window);
    beside.show();
    QDialog blocking(&window);
    blocking.open();
    QDialog question(&blocking);
    question.open();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&question));
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !question.isActiveWindow(); }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return question.isActiveWindow(); }));
    question.close();
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitFor([&] { return blocking.isActiveWindow(); }));
    blocking.close();
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
}

TEST(DocumentWindow, LeavesTheKeyboardToTheDialogThatCameLast)
{
    const EditedDocument edited(ListOf::Document);
    DocumentWindow& window = edited.document->window();
    QDialog former(&window);
    former.open();
    QDialog latter(&window);
    latter.open();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&latter));
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !latter.isActiveWindow(); }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return latter.isActiveWindow(); }));
    latter.close();
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitFor([&] { return former.isActiveWindow(); }));
}

TEST(DocumentWindow, TheSummaryOfAnImportEndsWithAnEllipsisWhereItHasTooLittleRoom)
{
    const EditedDocument edited(ListOf::Document);
    DocumentWindow& window = edited.document->window();
    const QString summary = QStringLiteral("Persons taken over: 3010. ").repeated(20);
    window.showOpeningReport(summary, {});
    window.resize(600, 400);
    QApplication::processEvents();
    QStatusBar& bar = *window.statusBar();
    auto* const label = bar.findChild<ElidedLabel*>();
    ASSERT_TRUE(label);
    EXPECT_EQ(label->accessibleName(), summary);
    EXPECT_EQ(label->accessibleDescription(), summary);
    ASSERT_TRUE(bar.rect().contains(label->geometry()));
    ElidedLabel shortened(label->fontMetrics().elidedText(summary, Qt::ElideRight, label->width()), Qt::ElideNone);
    shortened.resize(label->size());
    EXPECT_EQ(wordsOf(*label), wordsOf(shortened));
}

TEST(DocumentWindow, TheFullScreenCommandFollowsTheWindow)
{
    QSettings().clear();
    {
        const EditedDocument first(ListOf::Document);
        DocumentWindow& window = first.document->window();
        auto* const command = window.findChild<QAction*>(QStringLiteral("fullScreen"));
        EXPECT_FALSE(command->isChecked());
        window.showFullScreen();
        EXPECT_TRUE(QTest::qWaitFor([&] { return command->isChecked(); }));
        window.showNormal();
        EXPECT_TRUE(QTest::qWaitFor([&] { return !command->isChecked(); }));
        command->trigger();
        EXPECT_TRUE(QTest::qWaitFor([&] { return window.isFullScreen(); }));
        window.leave();
    }
    const EditedDocument restored(ListOf::Document);
    EXPECT_EQ(restored.document->window().findChild<QAction*>(QStringLiteral("fullScreen"))->isChecked(),
              restored.document->window().isFullScreen());
    EXPECT_TRUE(restored.document->window().isFullScreen());
    QSettings().clear();
}

TEST(DocumentWindow, TheHintInTheSearchFieldCanBeReadInADarkTheme)
{
    const DarkTheme theme;
    const EditedDocument edited(ListOf::Document);
    const QPalette palette = searchField(edited.document->window()).palette();
    const QColor hint = palette.color(QPalette::PlaceholderText);
    EXPECT_GT(hint.lightness() - palette.color(QPalette::Base).lightness(), 100);
    EXPECT_GT(hint.alpha(), 100);
}

TEST(DocumentWindow, OffersStandBesideOneAnother)
{
    const EditedDocument edited(ListOf::Document);
    DocumentWindow& window = edited.document->window();
    for (const char16_t* const text : {u"one", u"two"})
        window.offer(QString::fromUtf16(text), QStringLiteral("Take"), [] {});
    EXPECT_EQ(window.findChildren<QFrame*>(QStringLiteral("notice")).size(), 2);
}

TEST(DocumentWindow, AnOfferTakesThePlaceOfTheLastOfItsKind)
{
    const EditedDocument edited(ListOf::Document);
    DocumentWindow& window = edited.document->window();
    const auto told = [&window] {
        QStringList texts;
        for (const QFrame* const notice : window.findChildren<QFrame*>(QStringLiteral("notice")))
            texts << notice->findChild<QLabel*>()->text();
        texts.sort();
        return texts;
    };
    window.offer(QStringLiteral("other"), QStringLiteral("Take"), [] {});
    window.offerOfKind(QStringLiteral("export"), QStringLiteral("first"), QStringLiteral("Take"), [] {});
    window.offerOfKind(QStringLiteral("import"), QStringLiteral("imported"), QStringLiteral("Take"), [] {});
    window.offerOfKind(QStringLiteral("export"), QStringLiteral("second"), QStringLiteral("Take"), [] {});
    EXPECT_EQ(told(), QStringList({QStringLiteral("imported"), QStringLiteral("other"), QStringLiteral("second")}));
}

TEST(DocumentWindow, AFamilyThatFitsHasNoScrollBarBelowIt)
{
    QSettings().clear();
    ObjectContext couple;
    Pool& pool = couple.insertPool();
    for (int person = 0; person < 2; ++person)
        pool.addPerson(couple.insertPerson({}));
    pool.persons()[0]->addPartner(*pool.persons()[1]);
    const EditedDocument opened(couple, ListOf::Document);
    EXPECT_FALSE(opened.canvas().verticalScrollBar()->isVisible());
    EXPECT_FALSE(opened.canvas().horizontalScrollBar()->isVisible());
}

TEST(DocumentWindow, AFamilyThatIsOnlyTooHighHasNoScrollBarBelowIt)
{
    QSettings().clear();
    const EditedDocument opened(*threeGenerations(), ListOf::Document);
    EXPECT_TRUE(opened.canvas().verticalScrollBar()->isVisible());
    EXPECT_FALSE(opened.canvas().horizontalScrollBar()->isVisible());
}

TEST(DocumentWindow, FilesDroppedOntoItAreOpened)
{
    DocumentWindow window;
    QStringList opened;
    window.setOpenFiles([&](const QStringList& paths) { opened = paths; });
    QMimeData data;
    data.setUrls(
        {QUrl::fromLocalFile(QStringLiteral("/somewhere/royal.ged")), QUrl(QStringLiteral("http://elsewhere"))});
    QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &drop);
    EXPECT_EQ(opened, QStringList{QStringLiteral("/somewhere/royal.ged")});
}

TEST(DocumentWindow, WhatIsNamedLikeNoFamilyIsNotAcceptedAtAll)
{
    DocumentWindow window;
    window.setOpenFiles([](const QStringList&) { ADD_FAILURE(); });
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QStringLiteral("/somewhere/anna.jpg")),
                  QUrl::fromLocalFile(QStringLiteral("/somewhere/ged")),
                  QUrl::fromLocalFile(QStringLiteral("/somewhere/royal.ged.txt"))});
    QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    QApplication::sendEvent(&window, &enter);
    EXPECT_FALSE(enter.isAccepted());
    QDropEvent drop(QPointF(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &drop);
}

TEST(DocumentWindow, TextsThatAreDroppedAreLeftToTheFields)
{
    DocumentWindow window;
    window.setOpenFiles([](const QStringList&) { ADD_FAILURE(); });
    QMimeData data;
    data.setText(QStringLiteral("Anna"));
    QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    QApplication::sendEvent(&window, &enter);
    EXPECT_FALSE(enter.isAccepted());
}
