#pragma once

#include <QString>

namespace lineara {

/// A folder as everybody writes it: "~" stands for the user's home.
QString shownFolder(const QString& folder);

} // namespace lineara
