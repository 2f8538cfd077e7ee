#pragma once

#include "platform/outcome.h"
#include "platform/progress.h"
#include "raw_family.h"

#include <QStringList>

#include <string_view>

namespace lineara::store {

/// Takes a family out of the text of a file. The failure names the place and the reason; what had to be left out or
/// replaced is told in `repairs`.
Outcome<RawFamily> readText(std::string_view text, QStringList& repairs, const Progress& progress);

} // namespace lineara::store
