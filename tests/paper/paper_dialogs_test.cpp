// The dialogs, as their users go through them.

#include "outside_program.h"
#include "paper/paper_dialogs.h"
#include "paper_family.h"
#include "paper_work.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrinter>
#include <QProgressBar>
#include <QPushButton>
#include <QSettings>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>

#include <gmock/gmock.h>

#include <cmath>
#include <cstdlib>
#include <memory>
#include <set>

namespace lineara {
namespace {

using testing::HasSubstr;

class PaperDialogs : public testing::Test
{
protected:
    PaperDialogs()
    {
        QCoreApplication::setOrganizationName(QStringLiteral("paper tests"));
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder_.path());
        window_.show();
    }
    ~PaperDialogs() override
    {
        for (QDialog* const dialog : window_.findChildren<QDialog*>(QString(), Qt::FindDirectChildrenOnly))
            delete dialog;
    }

    PaperSubject subject()
    {
        return {&*family_.scene, partsOf(family_.pool.persons().size() > 2 ? family_.pool.persons()[2] : nullptr),
                QStringLiteral("The Test Family"), QStringLiteral("22 November 2026"), folder_.path()};
    }

    QDialog& exporting()
    {
        showExportPicture(&window_, subject());
        return *window_.findChild<QDialog*>(QStringLiteral("exportPicture"));
    }
    QDialog& printing()
    {
        showPrint(&window_, subject());
        return *window_.findChild<QDialog*>(QStringLiteral("printPicture"));
    }

    template<class Widget>
    static Widget& part(QDialog& dialog, const char* name)
    {
        return *dialog.findChild<Widget*>(QString::fromLatin1(name));
    }
    static QString summary(QDialog& dialog) { return part<QLabel>(dialog, "paperSummary").text(); }

    QString at(const char* name) const { return folder_.filePath(QString::fromLatin1(name)); }

    /// Answers the file dialog that a button of another one opens.
    static void save(QDialog& dialog, const char* button, const QString& path)
    {
        QTest::mouseClick(&part<QPushButton>(dialog, button), Qt::LeftButton);
        auto* const files = dialog.findChild<QFileDialog*>();
        ASSERT_TRUE(files);
        files->setOption(QFileDialog::DontConfirmOverwrite);
        Q_EMIT files->fileSelected(path);
        files->close();
    }

    bool isGone(const char* name)
    {
        return QTest::qWaitFor([&] { return !window_.findChild<QDialog*>(QString::fromLatin1(name)); }, 60'000);
    }

    static QByteArray content(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QTemporaryDir folder_;
    PaperFamily family_;
    QWidget window_;
};

TEST_F(PaperDialogs, ExportMakesTheFileThatWasChosen)
{
    family_.addThreeGenerations();
    family_.show();
    QDialog& dialog = exporting();
    part<QComboBox>(dialog, "pictureKind").setCurrentIndex(2);
    part<QSpinBox>(dialog, "pictureWidth").setValue(700);
    part<QCheckBox>(dialog, "pictureTransparent").setChecked(true);
    save(dialog, "exportButton", at("a.png"));
    ASSERT_TRUE(isGone("exportPicture"));
    const QImage image(at("a.png"));
    EXPECT_EQ(image.width(), 700);
    EXPECT_TRUE(image.hasAlphaChannel());
}

TEST_F(PaperDialogs, BothSidesOfAPngFollowItsShape)
{
    family_.addThreeGenerations();
    family_.show();
    QDialog& dialog = exporting();
    part<QComboBox>(dialog, "pictureKind").setCurrentIndex(2);
    auto& width = part<QSpinBox>(dialog, "pictureWidth");
    auto& height = part<QSpinBox>(dialog, "pictureHeight");
    const double shape = static_cast<double>(width.value()) / height.value();
    width.setValue(4'000);
    EXPECT_NEAR(4'000.0 / height.value(), shape, 0.01);
    height.setValue(500);
    EXPECT_NEAR(width.value() / 500.0, shape, 0.01);
    auto& button = part<QPushButton>(dialog, "exportButton");
    EXPECT_TRUE(button.isEnabled());
    width.setValue(900'000);
    EXPECT_FALSE(button.isEnabled());
    EXPECT_THAT(summary(dialog).toStdString(), HasSubstr("too large"));
}

TEST_F(PaperDialogs, ASmallPartOfALargeFamilyIsOfferedInFullSize)
{
    family_.addThreeGenerations();
    family_.addRow(20'000);
    family_.show();
    QDialog& dialog = exporting();
    part<QComboBox>(dialog, "pictureKind").setCurrentIndex(2);
    auto& width = part<QSpinBox>(dialog, "pictureWidth");
    auto& height = part<QSpinBox>(dialog, "pictureHeight");
    const QSize whole(width.value(), height.value());
    part<QComboBox>(dialog, "paperPart").setCurrentIndex(1);
    const PaperTexts texts{QStringLiteral("The Test Family"), {}};
    const PaperPicture small(*family_.scene, subject().parts[1].part, texts);
    const int full = static_cast<int>(std::lround(small.size().width()));
    ASSERT_GT(full, 300);
    EXPECT_TRUE(QTest::qWaitFor([&] { return width.value() == full; }, 3'000)) << width.value();
    part<QComboBox>(dialog, "paperPart").setCurrentIndex(0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return QSize(width.value(), height.value()) == whole; }, 3'000));
    part<QComboBox>(dialog, "paperPart").setCurrentIndex(1);
    ASSERT_TRUE(QTest::qWaitFor([&] { return width.value() == full; }, 3'000));
    // A size that was chosen is a size for each point, whatever part is shown.
    width.setValue(2 * full);
    part<QComboBox>(dialog, "paperPart").setCurrentIndex(2);
    const PaperPicture other(*family_.scene, subject().parts[2].part, texts);
    EXPECT_TRUE(QTest::qWaitFor([&] { return std::abs(width.value() - 2 * other.size().width()) <= 2; }, 3'000))
        << width.value();
}

TEST_F(PaperDialogs, AFileNameIsProposedThatIsNotTooLongForAFile)
{
    family_.addThreeGenerations();
    family_.show();
    // Of two, three and four bytes each; the last that fits would be cut in the middle.
    for (const QString& letter :
         {QStringLiteral("a"), QStringLiteral("ä"), QStringLiteral("日"), QStringLiteral("\U0001F333")}) {
        QDialog& dialog = exporting();
        part<QLineEdit>(dialog, "paperTitle").setText(letter.repeated(475));
        QTest::mouseClick(&part<QPushButton>(dialog, "exportButton"), Qt::LeftButton);
        const auto* const files = dialog.findChild<QFileDialog*>();
        ASSERT_TRUE(files);
        const QString proposed = files->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->text();
        EXPECT_EQ(proposed, letter.repeated(251 / letter.toUtf8().size()) + QStringLiteral(".pdf"));
        delete &dialog;
    }
}

TEST_F(PaperDialogs, PartAndTextsComeIntoTheFile)
{
    family_.addThreeGenerations();
    family_.show();
    QDialog& dialog = exporting();
    part<QComboBox>(dialog, "paperPart").setCurrentIndex(1);
    part<QCheckBox>(dialog, "hasFooter").setChecked(true);
    save(dialog, "exportButton", at("a.pdf"));
    ASSERT_TRUE(isGone("exportPicture"));
    const std::string text = printedBy(QStringLiteral("pdftotext"), {at("a.pdf"), QStringLiteral("-")}).toStdString();
    EXPECT_THAT(text, HasSubstr("The Test Family"));
    EXPECT_THAT(text, HasSubstr("22 November 2026"));
    EXPECT_THAT(text, HasSubstr("Karl"));
    EXPECT_THAT(text, testing::Not(HasSubstr("Ulf")));
}

TEST_F(PaperDialogs, TheirFieldsAreNamedForThoseWhoHearThem)
{
    family_.addThreeGenerations();
    family_.show();
    for (QDialog* const dialog : {&exporting(), &printing()}) {
        EXPECT_EQ(part<QLineEdit>(*dialog, "paperTitle").accessibleName(), QStringLiteral("Title"));
        EXPECT_EQ(part<QLineEdit>(*dialog, "paperFooter").accessibleName(), QStringLiteral("Footer"));
    }
}

TEST_F(PaperDialogs, TheLastChoicesAreRemembered)
{
    family_.addThreeGenerations();
    family_.show();
    QDialog& first = exporting();
    part<QComboBox>(first, "pictureKind").setCurrentIndex(1);
    part<QCheckBox>(first, "hasTitle").setChecked(false);
    first.reject();
    ASSERT_TRUE(isGone("exportPicture"));
    QDialog& second = exporting();
    EXPECT_EQ(part<QComboBox>(second, "pictureKind").currentIndex(), 1);
    EXPECT_FALSE(part<QCheckBox>(second, "hasTitle").isChecked());
    QDialog& print = printing();
    part<QComboBox>(print, "posterSizing").setCurrentIndex(2);
    part<QComboBox>(print, "paperFormat").setCurrentIndex(1);
    print.reject();
    ASSERT_TRUE(isGone("printPicture"));
    QDialog& again = printing();
    EXPECT_EQ(part<QComboBox>(again, "posterSizing").currentIndex(), 2);
    EXPECT_EQ(part<QComboBox>(again, "paperFormat").currentIndex(), 1);
}

TEST_F(PaperDialogs, ChoicesSayWhatTheyMeanWhereverTheyStand)
{
    family_.addThreeGenerations();
    family_.show();
    QDialog& dialog = exporting();
    auto& kind = part<QComboBox>(dialog, "pictureKind");
    kind.setCurrentIndex(kind.findData(static_cast<int>(PictureKind::Svg)));
    EXPECT_THAT(kind.currentText().toStdString(), HasSubstr("SVG"));
    EXPECT_THAT(summary(dialog).toStdString(), HasSubstr("Sharp at any size"));
    QDialog& print = printing();
    auto& sizing = part<QComboBox>(print, "posterSizing");
    sizing.setCurrentIndex(sizing.findData(static_cast<int>(PosterWish::Sizing::PagesAcross)));
    part<QSpinBox>(print, "posterPages").setValue(4);
    EXPECT_THAT(sizing.currentText().toStdString(), HasSubstr("wide"));
    EXPECT_THAT(summary(print).toStdString(), HasSubstr(" 4 \u00d7 "));
}

TEST_F(PaperDialogs, ThePosterIsCountedWhileItIsChosen)
{
    family_.addRow(60);
    family_.show();
    QDialog& dialog = printing();
    part<QComboBox>(dialog, "posterSizing").setCurrentIndex(2);
    part<QSpinBox>(dialog, "posterPages").setValue(4);
    EXPECT_THAT(summary(dialog).toStdString(), HasSubstr("4 page(s) in 4 × 1."));
    part<QDoubleSpinBox>(dialog, "posterOverlap").setValue(200);
    EXPECT_THAT(summary(dialog).toStdString(), HasSubstr("overlap"));
    EXPECT_FALSE(part<QPushButton>(dialog, "printButton").isEnabled());
    EXPECT_FALSE(part<QPushButton>(dialog, "pdfButton").isEnabled());
    part<QDoubleSpinBox>(dialog, "posterOverlap").setValue(10);
    part<QComboBox>(dialog, "posterSizing").setCurrentIndex(0);
    EXPECT_THAT(summary(dialog).toStdString(), HasSubstr("One page."));
}

TEST_F(PaperDialogs, ThePreviewShowsWhatStandsOnTheSheetsBesideThePicture)
{
    family_.addRow(60);
    family_.show();
    QDialog& dialog = printing();
    dialog.resize(1'400, 900);
    const auto seen = [&] { return part<QWidget>(dialog, "paperPreview").grab().toImage(); };
    part<QComboBox>(dialog, "posterSizing").setCurrentIndex(2);
    part<QSpinBox>(dialog, "posterPages").setValue(2);
    for (const char* const mark : {"cropMarks", "pageNumbers", "assemblyPage"}) {
        auto& box = part<QCheckBox>(dialog, mark);
        box.setChecked(true);
        const QImage with = seen();
        box.setChecked(false);
        EXPECT_NE(seen(), with) << mark;
        EXPECT_EQ(seen(), seen()) << mark;
    }
    part<QComboBox>(dialog, "posterSizing").setCurrentIndex(0);
    const QImage alone = seen();
    part<QCheckBox>(dialog, "cropMarks").setChecked(true);
    part<QCheckBox>(dialog, "assemblyPage").setChecked(true);
    EXPECT_EQ(seen(), alone) << "a single page has nothing to be put together with";
}

TEST_F(PaperDialogs, APosterCanBeSavedInsteadOfPrinted)
{
    family_.addRow(60);
    family_.show();
    QDialog& dialog = printing();
    part<QComboBox>(dialog, "posterSizing").setCurrentIndex(2);
    part<QSpinBox>(dialog, "posterPages").setValue(2);
    save(dialog, "pdfButton", at("poster.pdf"));
    ASSERT_TRUE(isGone("printPicture"));
    EXPECT_THAT(printedBy(QStringLiteral("pdfinfo"), {at("poster.pdf")}).simplified().toStdString(),
                HasSubstr("Pages: 3 "));
}

TEST_F(PaperDialogs, CancelEndsTheWorkLeavesNoFileAndKeepsTheDialog)
{
    family_.addRow(4'000);
    family_.show();
    QDialog& dialog = exporting();
    part<QComboBox>(dialog, "pictureKind").setCurrentIndex(2);
    part<QSpinBox>(dialog, "pictureWidth").setValue(60'000);
    save(dialog, "exportButton", at("a.png"));
    auto& progress = part<QProgressBar>(dialog, "paperProgress");
    ASSERT_TRUE(QTest::qWaitFor([&] { return progress.value() > 0; }));
    EXPECT_FALSE(part<QPushButton>(dialog, "exportButton").isEnabled());
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_FALSE(progress.isVisible());
    EXPECT_TRUE(part<QPushButton>(dialog, "exportButton").isEnabled());
    QTest::qWait(100);
    EXPECT_FALSE(QFile::exists(at("a.png")));
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_TRUE(isGone("exportPicture"));
}

TEST_F(PaperDialogs, WhatCanNotBeSavedIsToldAndTheDialogStays)
{
    family_.addRow(3);
    family_.show();
    QDialog& dialog = exporting();
    save(dialog, "exportButton", at("nowhere/a.pdf"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return dialog.findChild<QMessageBox*>() != nullptr; }));
    EXPECT_THAT(dialog.findChild<QMessageBox*>()->text().toStdString(), HasSubstr("nowhere/a.pdf"));
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_TRUE(part<QPushButton>(dialog, "exportButton").isEnabled());
}

TEST_F(PaperDialogs, AFamilyThatChangesMeanwhileIsDrawnAnew)
{
    family_.addRow(3'000);
    family_.show();
    QDialog& dialog = exporting();
    part<QComboBox>(dialog, "pictureKind").setCurrentIndex(1);
    save(dialog, "exportButton", at("a.svg"));
    auto& progress = part<QProgressBar>(dialog, "paperProgress");
    ASSERT_TRUE(QTest::qWaitFor([&] { return progress.value() > 0; }));
    Person& first = *family_.pool.persons()[0];
    first.setName(QStringLiteral("Renamed Meanwhile"));
    family_.scene->removePerson(*family_.pool.persons()[2'999]);
    family_.pool.removePerson(*family_.pool.persons()[2'999]);
    ASSERT_TRUE(isGone("exportPicture"));
    const QByteArray svg = content(at("a.svg"));
    EXPECT_TRUE(svg.contains("Renamed"));
    EXPECT_FALSE(svg.contains("Person 2999"));
    EXPECT_TRUE(svg.contains("Person 2998"));
}

TEST_F(PaperDialogs, GoWithTheirWindowInTheMiddleOfWork)
{
    family_.addRow(4'000);
    family_.show();
    auto window = std::make_unique<QWidget>();
    window->show();
    showExportPicture(window.get(), subject());
    auto* const dialog = window->findChild<QDialog*>(QStringLiteral("exportPicture"));
    part<QComboBox>(*dialog, "pictureKind").setCurrentIndex(2);
    part<QSpinBox>(*dialog, "pictureWidth").setValue(60'000);
    save(*dialog, "exportButton", at("a.png"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return part<QProgressBar>(*dialog, "paperProgress").value() > 0; }));
    window.reset();
    QTest::qWait(50);
    EXPECT_FALSE(QFile::exists(at("a.png")));
}

TEST_F(PaperDialogs, EverythingIsReachedByTheKeyboard)
{
    family_.addThreeGenerations();
    family_.show();
    for (QDialog* const dialog : {&exporting(), &printing()}) {
        std::set<const QWidget*> reached;
        for (const QWidget* next = dialog->nextInFocusChain(); reached.insert(next).second;)
            next = next->nextInFocusChain();
        for (const QWidget* const widget : dialog->findChildren<QWidget*>()) {
            const bool takesTab = widget->isVisible() && (widget->focusPolicy() & Qt::TabFocus);
            EXPECT_TRUE(!takesTab || reached.contains(widget)) << widget->objectName().toStdString();
        }
        for (const QLabel* const label : dialog->findChildren<QLabel*>())
            EXPECT_TRUE(!label->text().contains(u'&') || label->buddy()) << label->text().toStdString();
    }
}

} // namespace
} // namespace lineara
