#pragma once

#include "kinship/checks.h"

#include <QString>

namespace lineara {

/// A date as far as it is known, to be read within a sentence: "17 May 1900", "May 1900", "44 BC".
QString dateWords(const kinship::PartialDate& date);

/// What can't be true, as a sentence about the person who was found; `other` is the name of the other one.
QString findingWords(const kinship::FoundPerson& found, const kinship::CheckedFamily& family, const QString& other);

} // namespace lineara
