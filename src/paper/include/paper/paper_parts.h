#pragma once

#include "canvas/picture_part.h"

#include <QString>

#include <vector>

namespace lineara {

/// A choice of whom a picture shows, as it is offered.
struct PaperPart
{
    QString label;
    PicturePart part;
};

/// A person and all its ancestors.
PicturePart ancestorsOf(const Person& person);
/// A person and all its descendants, and whom any of them has children or a partnership with.
PicturePart descendantsOf(const Person& person);

/// What is offered of a family: all of it, and what goes out from a person if there is one.
std::vector<PaperPart> partsOf(const Person* person);

} // namespace lineara
