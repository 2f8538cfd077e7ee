#include "program_files.h"

#include "home_folder.h"

#include <QFileInfo>

#include <gtest/gtest.h>

#include <pwd.h>
#include <unistd.h>

using namespace lineara;

TEST(ProgramFiles, TheSampleFamilyIsFoundInTheTreeItWasBuiltIn)
{
    EXPECT_EQ(sampleFamily(), QFileInfo(QStringLiteral(LINEARA_SAMPLES "/shakespeare.lineara")).canonicalFilePath());
}

TEST(ProgramFiles, TheHelpPageIsInTheReadersLanguageOrElseInEnglish)
{
    EXPECT_TRUE(helpPage(QLocale(QStringLiteral("de_AT"))).path().endsWith(QStringLiteral("/help/de/index.html")));
    EXPECT_TRUE(helpPage(QLocale(QStringLiteral("en_GB"))).path().endsWith(QStringLiteral("/help/index.html")));
    EXPECT_TRUE(helpPage(QLocale(QStringLiteral("fr_FR"))).path().endsWith(QStringLiteral("/help/index.html")));
    EXPECT_TRUE(QFileInfo::exists(helpPage(QLocale::c()).toLocalFile()));
}

TEST(HomeFolder, IsTheOneThatTheSystemKnowsWhereTheEnvironmentTellsNone)
{
    const QByteArray before = qgetenv("HOME");
    for (const bool isEmpty : {false, true}) {
        if (isEmpty)
            qputenv("HOME", "");
        else
            qunsetenv("HOME");
        settleHomeFolder();
        EXPECT_EQ(qgetenv("HOME"), QByteArray(::getpwuid(::geteuid())->pw_dir));
    }
    qputenv("HOME", "/somewhere");
    settleHomeFolder();
    EXPECT_EQ(qgetenv("HOME"), "/somewhere");
    qputenv("HOME", before);
}
