#pragma once

#include "platform/outcome.h"
#include "raw_family.h"
#include "xml_source.h"

#include <QStringList>

namespace lineara::store {

/// Takes a family out of the tree. The failure names the place and the reason; what had to be left out or replaced is
/// told in `repairs`.
Outcome<RawFamily> readTree(const XmlSource& source, QStringList& repairs);

} // namespace lineara::store
