#pragma once

#include "platform/outcome.h"
#include "raw_family.h"
#include "xml_fragment.h"

#include <QStringList>

namespace lineara::store {

/// Reads the "databaseInfo" element: versions, UUID, next object number. Refuses versions other than the current ones.
Outcome<Done> readInfo(const XmlFragment& source, pugi::xml_node info, RawFamily& family, QStringList& repairs);

} // namespace lineara::store
