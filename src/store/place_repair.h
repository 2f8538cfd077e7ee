#pragma once

#include "raw_family.h"

#include <QStringList>

namespace lineara::store {

/// Leaves out rows and places so far off that no canvas could show them; adding to them would wrap around. Told in one
/// sentence each, however many persons are concerned.
void leaveOutAbsurdPlaces(RawFamily& family, QStringList& repairs);

} // namespace lineara::store
