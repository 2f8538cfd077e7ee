// Prints what a family costs on paper: milliseconds and bytes of its PDF, SVG and PNG and of a poster eight sheets
// wide. Of the family files or GEDCOM files given as arguments, or of made families of 1,000, 10,000 and 100,000
// persons. The median of five rounds; a hundred thousand persons are drawn once.

#include "canvas/family_scene.h"
#include "canvas/made_family.h"
#include "document/family_opening.h"
#include "elements/leaf_nursery.h"
#include "paper/paper_picture.h"
#include "paper/picture_export.h"

#include <QApplication>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <vector>

namespace lineara::bench {

namespace {

void measure(const char* what, const PaperPicture& picture, const PictureWish& wish, int rounds)
{
    std::vector<double> times;
    qsizetype bytes = 0;
    for (int round = 0; round < rounds; ++round) {
        const auto start = std::chrono::steady_clock::now();
        const auto content = pictureBytes(picture, wish);
        times.push_back(std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count());
        bytes = content.failed() ? 0 : content.value().size();
    }
    std::ranges::sort(times);
    std::printf("  %-7s %9.1f ms  %11lld bytes\n", what, times[times.size() / 2], static_cast<long long>(bytes));
    std::fflush(stdout);
}

void measure(Pool& pool)
{
    const LeafNursery nodes(pool.context());
    FamilyScene scene(pool);
    scene.addAllInRows();
    const PaperPicture picture(scene);
    const QSizeF size = picture.size();
    std::printf("%lld persons, %.0f x %.0f points\n", static_cast<long long>(pool.persons().size()), size.width(),
                size.height());
    const int rounds = pool.persons().size() < 50'000 ? 5 : 1;
    PictureWish wish;
    measure("PDF", picture, wish, rounds);
    wish.sheets = PosterSheets{{{595, 842}, {28, 28, 28, 28}}, {PosterWish::Sizing::PagesAcross, 1, 8, 28}, {}};
    measure("poster", picture, wish, rounds);
    wish.kind = PictureKind::Svg;
    measure("SVG", picture, wish, rounds);
    wish.kind = PictureKind::Png;
    const double scale = std::min({1.0, std::sqrt(64e6 / (size.width() * size.height())),
                                   mostPixelsAcross / std::max(size.width(), size.height())});
    wish.pixels = (size * scale).toSize().expandedTo({1, 1});
    measure("PNG", picture, wish, 1);
}

} // namespace

} // namespace lineara::bench

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    int programNameOnly = 1;
    const QApplication application(programNameOnly, argv);
    for (int at = 1; at < argc; ++at) {
        const auto family = lineara::openSettledFamily(QString::fromLocal8Bit(argv[at]));
        if (family.failed())
            std::printf("%s\n", qPrintable(family.failure().message));
        else
            lineara::bench::measure(*family.value().pool);
    }
    for (const std::uint32_t persons : {1'000U, 10'000U, 100'000U}) {
        if (argc > 1)
            break;
        const auto family = lineara::bench::madeFamily(persons);
        lineara::bench::measure(*family->allPools().front());
    }
}
