#pragma once

#include "paper/poster_plan.h"

#include <QString>

#include <cstddef>

class QPainter;

namespace lineara {

class PaperPicture;

/// What stands on the sheets of a poster beside the picture.
struct PosterMarks
{
    bool cropMarks = true;
    bool pageNumbers = true;
    bool assemblyPage = true; ///< a sheet of its own at the end that shows how the others lie
    bool leavesOutBlank = true;
};

/// "2/7 – column C, row 2". `page` counts from 0.
QString pageLabel(const PosterPlan& plan, std::size_t page);
/// "A" to "Z", then "AA". Counts from 0.
QString columnName(int column);

/// Draws the marks of one sheet into its margins, in points of paper; `page` counts from 0. Nothing on a single sheet.
void paintMarks(QPainter& painter, const PosterPlan& plan, std::size_t page, const PosterMarks& marks);

/// Whether a sheet that shows how the others lie comes after them.
bool hasAssembly(const PosterPlan& plan, const PosterMarks& marks);

/// Draws how the sheets lie beside one another, and what is to be done with them, on a sheet of the plan.
void paintAssembly(QPainter& painter, const PosterPlan& plan, const PaperPicture& picture);

} // namespace lineara
