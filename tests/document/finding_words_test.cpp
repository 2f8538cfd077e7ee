// What can't be true of dates, in words.

#include "finding_words.h"

#include <gtest/gtest.h>

#include <QLocale>

#include <vector>

namespace lineara {
namespace {

using kinship::Finding;
using kinship::LifeDates;

class FindingWordsTest : public testing::Test
{
protected:
    void SetUp() override { QLocale::setDefault(QLocale::c()); }
    void TearDown() override { QLocale::setDefault(QLocale::system()); }

    std::string words(Finding finding) const
    {
        const engine::FamilyGraph nobody;
        return findingWords({0, finding, 1}, {nobody, dates, sexes}, QStringLiteral("Ada")).toStdString();
    }

    std::vector<LifeDates> dates{{{1901, 5, 17}, {1900, 4}}, {{1890}, {-44}}};
    std::vector<kinship::Sex> sexes;
};

TEST_F(FindingWordsTest, DatesAreToldAsFarAsTheyAreKnown)
{
    EXPECT_EQ(dateWords({1900, 5, 17}), u"17 May 1900");
    EXPECT_EQ(dateWords({1900, 5}), u"May 1900");
    EXPECT_EQ(dateWords({1900}), u"1900");
    EXPECT_EQ(dateWords({1900, std::nullopt, 17}), u"1900");
    EXPECT_EQ(dateWords({1900, 13, 17}), u"1900");
    EXPECT_EQ(dateWords({-44, 3, 15}), u"15 March 44 BC");
    EXPECT_EQ(dateWords({std::nullopt, 3, 15}), QString());
}

TEST_F(FindingWordsTest, EveryFindingTellsTheDatesThatContradictEachOther)
{
    EXPECT_EQ(words(Finding::BornAfterDeath), "Born 17 May 1901, died April 1900: born after the death");
    EXPECT_EQ(words(Finding::TooOld), "Born 17 May 1901, died April 1900: over 120 years old");
    EXPECT_EQ(words(Finding::BornBeforeParent), "Born 17 May 1901, before the parent Ada (born 1890)");
    EXPECT_EQ(words(Finding::ParentTooYoung), "Born 17 May 1901, when the parent Ada (born 1890) was under 12");
    EXPECT_EQ(words(Finding::ParentTooOld), "Born 17 May 1901, when the parent Ada (born 1890) was over 80");
    EXPECT_EQ(words(Finding::BornAfterParentsDeath),
              "Born 17 May 1901, more than ten months after the death of the parent Ada (died 44 BC)");
    EXPECT_EQ(words(Finding::BornTooSoonAfterSibling),
              "Born 17 May 1901, less than nine months after the sibling Ada (born 1890)");
}

TEST_F(FindingWordsTest, TheOtherIsCalledByWhatItIs)
{
    sexes = {kinship::Sex::Male, kinship::Sex::Female};
    EXPECT_EQ(words(Finding::BornBeforeParent), "Born 17 May 1901, before the mother Ada (born 1890)");
    EXPECT_EQ(words(Finding::ParentTooYoung), "Born 17 May 1901, when the mother Ada (born 1890) was under 12");
    EXPECT_EQ(words(Finding::ParentTooOld), "Born 17 May 1901, when the mother Ada (born 1890) was over 80");
    EXPECT_EQ(words(Finding::BornTooSoonAfterSibling),
              "Born 17 May 1901, less than nine months after the sister Ada (born 1890)");
    EXPECT_EQ(words(Finding::BornAfterParentsDeath), "Born 17 May 1901, after the death of the mother Ada (died 44 BC)")
        << "of a mother at once";
    sexes[1] = kinship::Sex::Male;
    EXPECT_EQ(words(Finding::BornAfterParentsDeath),
              "Born 17 May 1901, more than ten months after the death of the father Ada (died 44 BC)");
    EXPECT_EQ(words(Finding::BornBeforeParent), "Born 17 May 1901, before the father Ada (born 1890)");
}

} // namespace
} // namespace lineara
