#include "gedcom_name.h"

#include <gtest/gtest.h>

namespace lineara {
namespace {

std::string plain(const char* value)
{
    return plainName(QString::fromUtf8(value)).toStdString();
}

TEST(GedcomNames, AreWrittenAsPeopleWriteThem)
{
    EXPECT_EQ(plain("William /Shakespeare/"), "William Shakespeare");
    EXPECT_EQ(plain("Lt. Cmndr. Joseph \"John\" /de Allen/ jr."), "Lt. Cmndr. Joseph \"John\" de Allen jr.");
    EXPECT_EQ(plain("/Mao/ Zedong"), "Mao Zedong");
    EXPECT_EQ(plain("Charlotte /Brontë/"), "Charlotte Brontë");
    EXPECT_EQ(plain("John/Doe/Jr"), "John Doe Jr");
    EXPECT_EQ(plain("Pat  Smith "), "Pat Smith");
    EXPECT_EQ(plain("John /Doe"), "John Doe");
    EXPECT_EQ(plain("Anna /Meier/Müller/"), "Anna Meier/Müller");
}

TEST(GedcomNames, ShowANicknameThatTheyDoNotHoldYet)
{
    const auto named = [](const char* value, const char* nick) {
        return plainName(QString::fromUtf8(value), QString::fromUtf8(nick)).toStdString();
    };
    EXPECT_EQ(named("Joseph /Kennedy/ jr.", "Joe"), "Joseph \"Joe\" Kennedy jr.");
    EXPECT_EQ(named("Joseph \"Joe\" /Kennedy/", "Joe"), "Joseph \"Joe\" Kennedy");
    EXPECT_EQ(named("Joseph", "Joe"), "Joseph \"Joe\"");
    EXPECT_EQ(named("/Kennedy/", " the  Old "), "\"the Old\" Kennedy");
    EXPECT_EQ(named("Joseph /Kennedy/", " "), "Joseph Kennedy");
}

TEST(GedcomNames, CanBeEmpty)
{
    EXPECT_EQ(plain(""), "");
    EXPECT_EQ(plain("//"), "");
    EXPECT_EQ(plain(" / / "), "");
    EXPECT_EQ(plain("/"), "");
}

} // namespace
} // namespace lineara
