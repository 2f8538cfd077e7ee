#pragma once

#include "kinship/sex.h"

#include <QByteArray>

namespace lineara {

/// What the kept record of an imported person says of its sex; what it says first, if it says several things. Unknown
/// where it says neither.
kinship::Sex recordedSex(const QByteArray& record);

} // namespace lineara
