#pragma once

#include "xml_writer.h"

namespace lineara {
class FamilyContent;
}

namespace lineara::store {

/// Writes the family as the text of a family file. False if the sink refused a piece.
bool writeFamilyText(const FamilyContent& family, ByteSink sink);

} // namespace lineara::store
