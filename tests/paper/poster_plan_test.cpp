#include "paper/poster_marks.h"
#include "paper/poster_plan.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>
#include <random>

namespace lineara {
namespace {

using Sizing = PosterWish::Sizing;

/// 200 x 300 points, of which 180 x 280 are printed on.
PaperSheet sheet()
{
    return {{200, 300}, {10, 10, 10, 10}};
}

PosterWish wish(Sizing sizing, int pages, double scale = 1, double overlap = 20)
{
    return {sizing, scale, pages, overlap};
}

PosterPlan plan(QSizeF picture, const PosterWish& wished)
{
    auto made = PosterPlan::make(picture, sheet(), wished);
    EXPECT_FALSE(made.failed());
    return made.value();
}

QString failure(QSizeF picture, const PaperSheet& paper, const PosterWish& wished)
{
    const auto made = PosterPlan::make(picture, paper, wished);
    return made.failed() ? made.failure().message : QString();
}

TEST(PosterPlan, OnePageShowsTheWholePictureInTheMiddle)
{
    const PosterPlan made = plan({360, 100}, wish(Sizing::OnePage, 7));
    ASSERT_EQ(made.pages().size(), 1U);
    EXPECT_DOUBLE_EQ(made.scale(), 0.5);
    EXPECT_EQ(made.pages()[0].target, QRectF(10, 10, 180, 280));
    EXPECT_EQ(made.pages()[0].source, QRectF(0, -230, 360, 560));
    EXPECT_EQ(made.overlap(), 0);
}

TEST(PosterPlan, OnePageEnlargesASinglePersonOnlySoFar)
{
    EXPECT_DOUBLE_EQ(plan({10, 10}, wish(Sizing::OnePage, 1)).scale(), PosterWish::greatestFit);
}

TEST(PosterPlan, APictureOfNothingTakesOnePage)
{
    for (const Sizing sizing : {Sizing::OnePage, Sizing::Scale})
        EXPECT_EQ(plan({0, 0}, wish(sizing, 1)).pages().size(), 1U);
}

TEST(PosterPlan, APictureAsLargeAsTheRoomTakesOnePage)
{
    EXPECT_EQ(plan({180, 280}, wish(Sizing::Scale, 1)).pages().size(), 1U);
    EXPECT_EQ(plan({181, 280}, wish(Sizing::Scale, 1)).columns(), 2);
    EXPECT_EQ(plan({180, 281}, wish(Sizing::Scale, 1)).rows(), 2);
}

TEST(PosterPlan, PagesCoverThePictureAndOverlap)
{
    // Each page but the first adds 160 points: 180 + 160 = 340 are enough for 330.
    const PosterPlan made = plan({330, 500}, wish(Sizing::Scale, 1));
    EXPECT_EQ(made.columns(), 2);
    EXPECT_EQ(made.rows(), 2);
    ASSERT_EQ(made.pages().size(), 4U);
    EXPECT_EQ(made.pages()[0].source, QRectF(-5, -20, 180, 280));
    EXPECT_EQ(made.pages()[1].source, QRectF(155, -20, 180, 280));
    EXPECT_EQ(made.pages()[2].source, QRectF(-5, 240, 180, 280));
    EXPECT_EQ(made.pages()[3].column, 1);
    EXPECT_EQ(made.pages()[3].row, 1);
}

TEST(PosterPlan, AsManyPagesAcrossOrDownAsWished)
{
    for (int pages = 1; pages <= 12; ++pages) {
        const PosterPlan across = plan({5'000, 300}, wish(Sizing::PagesAcross, pages));
        EXPECT_EQ(across.columns(), pages);
        EXPECT_NEAR(across.scale() * 5'000, pages * 160 + 20, 1e-6);
        const PosterPlan down = plan({300, 5'000}, wish(Sizing::PagesDown, pages));
        EXPECT_EQ(down.rows(), pages);
    }
}

TEST(PosterPlan, AGiantRowIsOneRowOfPages)
{
    const PosterPlan made = plan({200'000, 166}, wish(Sizing::Scale, 1));
    EXPECT_EQ(made.rows(), 1);
    EXPECT_EQ(made.columns(), 1'250);
}

TEST(PosterPlan, PagesMayBeSmallerThanANode)
{
    const PaperSheet tiny{{40, 40}, {5, 5, 5, 5}};
    const auto made = PosterPlan::make({142, 133}, tiny, wish(Sizing::Scale, 1, 1, 5));
    ASSERT_FALSE(made.failed());
    EXPECT_EQ(made.value().columns(), 6); // 30 + 5 * 25 = 155
    EXPECT_EQ(made.value().rows(), 6);
}

TEST(PosterPlan, WhatLeavesNoRoomIsRefused)
{
    EXPECT_THAT(failure({100, 100}, {{200, 300}, {100, 10, 100, 10}}, wish(Sizing::OnePage, 1)).toStdString(),
                testing::HasSubstr("margins"));
    EXPECT_THAT(failure({100, 100}, {{10, 10}, {}}, wish(Sizing::OnePage, 1)).toStdString(),
                testing::HasSubstr("margins"));
    for (const double overlap : {165.0, 180.0, 5'000.0, -1.0, std::nan("")}) {
        EXPECT_THAT(failure({900, 900}, sheet(), wish(Sizing::Scale, 1, 1, overlap)).toStdString(),
                    testing::HasSubstr("overlap"))
            << overlap;
    }
    EXPECT_EQ(failure({900, 900}, sheet(), wish(Sizing::OnePage, 1, 1, 5'000)), QString()) << "one page overlaps none";
    for (const double scale : {0.0, -1.0, std::nan(""), std::numeric_limits<double>::infinity()})
        EXPECT_NE(failure({900, 900}, sheet(), wish(Sizing::Scale, 1, scale)), QString()) << scale;
}

TEST(PosterPlan, TooManyPagesAreCountedAndRefused)
{
    EXPECT_THAT(failure({1e6, 1e6}, sheet(), wish(Sizing::Scale, 1)).toStdString(),
                testing::HasSubstr("That would be 24,043,750 pages, more than the 2,000"));
    EXPECT_NE(failure({1e300, 1e300}, sheet(), wish(Sizing::Scale, 1)), QString());
}

TEST(PosterPlan, EveryPointOfThePictureIsOnAPageAndNeighboursShareTheOverlap)
{
    std::mt19937 random(7);
    const auto between = [&random](double low, double high) {
        return std::uniform_real_distribution(low, high)(random);
    };
    for (int round = 0; round < 2'000; ++round) {
        const QSizeF picture(between(1, 8'000), between(1, 3'000));
        const auto sizing = static_cast<Sizing>(round % 4);
        const PosterWish wished{sizing, between(0.1, 1), static_cast<int>(between(1, 6)), between(0, 100)};
        const auto made = PosterPlan::make(picture, sheet(), wished);
        if (made.failed())
            continue;
        const PosterPlan& found = made.value();
        QRectF all;
        for (const PosterPage& page : found.pages()) {
            all |= page.source;
            EXPECT_NEAR(page.source.width() * found.scale(), 180, 1e-6);
        }
        EXPECT_TRUE(all.adjusted(-1e-6, -1e-6, 1e-6, 1e-6).contains(QRectF({}, picture)));
        EXPECT_EQ(found.pages().size(), static_cast<std::size_t>(found.columns() * found.rows()));
        if (found.columns() > 1) {
            const double shared = found.pages()[0].source.right() - found.pages()[1].source.left();
            EXPECT_NEAR(shared * found.scale(), found.overlap(), 1e-6);
            const double whole = (found.columns() - 1) * (180 - found.overlap());
            EXPECT_GT(picture.width() * found.scale(), whole - 1e-3) << "no column too many";
        }
    }
}

TEST(PosterPlan, BlankPagesAreLeftOutAndNumbersKeepTheirPlaces)
{
    PosterPlan made = plan({330, 500}, wish(Sizing::Scale, 1));
    made.leaveOut([](const PosterPage& page) { return page.column == 1 && page.row == 0; });
    ASSERT_EQ(made.pages().size(), 3U);
    EXPECT_EQ(pageLabel(made, 1), u"2/3 – column A, row 2");
    EXPECT_EQ(pageLabel(made, 2), u"3/3 – column B, row 2");
    made.leaveOut([](const PosterPage&) { return true; });
    EXPECT_EQ(made.pages().size(), 1U);
}

TEST(PosterPlan, ColumnsAreNamedLikeThoseOfTables)
{
    EXPECT_EQ(columnName(0), u"A");
    EXPECT_EQ(columnName(25), u"Z");
    EXPECT_EQ(columnName(26), u"AA");
    EXPECT_EQ(columnName(27 * 26), u"AAA");
}

} // namespace
} // namespace lineara
