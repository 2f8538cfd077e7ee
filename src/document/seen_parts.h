#pragma once

#include "canvas/seen_part.h"

#include <QUuid>

#include <optional>

namespace lineara {

/// Which part of each family was seen last, kept in the user's settings: it is a matter of who looks at a family and
/// not of the family. The families that were not looked at for longest are forgotten.
class SeenParts
{
public:
    static constexpr int mostFamilies = 50;

    static void keep(const QUuid& family, const SeenPart& part);
    /// No value for a family that is not remembered.
    static std::optional<SeenPart> of(const QUuid& family);
};

} // namespace lineara
