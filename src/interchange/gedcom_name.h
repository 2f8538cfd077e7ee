#pragma once

#include <QString>

#include <array>
#include <string_view>

namespace lineara {

inline constexpr std::string_view nicknameTag = "NICK";

/// The tags of the pieces of a name, in the order in which they make one.
inline constexpr std::array<std::string_view, 6> namePieces = {"NPFX", "GIVN", nicknameTag, "SPFX", "SURN", "NSFX"};

/// "Given /Surname/ Suffix" as people write it: "Given Surname Suffix". Only the slashes around the surname go. A
/// nickname that the name does not show yet stands before the surname, in quotation marks. Empty if nothing remains.
QString plainName(const QString& value, const QString& nickname = {});

/// Whether the name shows a piece of it (GIVN, SURN, ...) in whole words.
bool showsPiece(const QString& name, const QString& piece);

} // namespace lineara
