#pragma once

#include <QIcon>

namespace lineara {

/// The program's icon: two leaves on a stem.
QIcon programIcon();

/// The icon of a family file.
QIcon familyIcon();

} // namespace lineara
