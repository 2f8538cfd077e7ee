#pragma once

#include <QString>

namespace lineara {

/// "Given /Surname/ Suffix" as people write it: "Given Surname Suffix". Only the slashes around the surname go.
/// Empty if nothing remains.
QString plainName(const QString& value);

} // namespace lineara
