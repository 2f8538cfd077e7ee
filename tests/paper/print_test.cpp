// What comes out of a printer, which is a file here.

#include "outside_program.h"
#include "paper_family.h"
#include "print_output.h"
#include "print_work.h"

#include <QFile>
#include <QPrinter>
#include <QTemporaryDir>

#include <gmock/gmock.h>

namespace lineara {
namespace {

using testing::HasSubstr;

TEST(Print, PutsEachSheetOfAPosterOnAPageOfItsPaper)
{
    PaperFamily family;
    family.addRow(30);
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("printed.pdf"));
    const auto printer = std::make_shared<QPrinter>();
    printer->setOutputFileName(path);
    PosterSheets sheets = posterSheets(PosterWish::Sizing::PagesAcross, 2);
    sheets.sheet.size = {842, 595};
    setPaper(*printer, sheets.sheet);
    auto begun = PrintWork::begin(std::make_unique<PaperPicture>(family.show()), sheets, printer);
    ASSERT_FALSE(begun.failed());
    PaperWork& work = *begun.value();
    while (work.step()) {
    }
    EXPECT_FALSE(work.finish().failed());
    const std::string info = printedBy(QStringLiteral("pdfinfo"), {path}).simplified().toStdString();
    EXPECT_THAT(info, HasSubstr("Pages: 3 "));
    EXPECT_THAT(info, HasSubstr("Page size: 842 x 595"));
    const std::string text = printedBy(QStringLiteral("pdftotext"), {path, QStringLiteral("-")}).toStdString();
    EXPECT_THAT(text, HasSubstr("2/2 – column B, row 1"));
    EXPECT_THAT(text, HasSubstr("Person 29"));
}

TEST(Print, AFileThatCanNotBeWrittenIsTold)
{
    PaperFamily family;
    family.addRow(3);
    const auto printer = std::make_shared<QPrinter>();
    printer->setOutputFileName(QStringLiteral("/nowhere/printed.pdf"));
    auto begun = PrintWork::begin(std::make_unique<PaperPicture>(family.show()),
                                  posterSheets(PosterWish::Sizing::OnePage, 1), printer);
    ASSERT_FALSE(begun.failed());
    while (begun.value()->step()) {
    }
    const auto printed = begun.value()->finish();
    ASSERT_TRUE(printed.failed());
    EXPECT_THAT(printed.failure().message.toStdString(), HasSubstr("“/nowhere/printed.pdf” can’t be written"));
}

} // namespace
} // namespace lineara
