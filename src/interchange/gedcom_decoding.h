#pragma once

#include "gedcom_codepages.h"

#include "platform/progress.h"

#include <QByteArray>

#include <cstdint>
#include <string_view>
#include <vector>

namespace lineara {

/// UTF-8 of a text in a character set of one byte a character. Marks of ANSEL come to stand after their letter and are
/// composed with it where Unicode has both as one. Bytes without a character become U+FFFD.
/// Not all if the progress is stopped.
QByteArray utf8FromPage(CodePage page, std::string_view text, const Progress& progress = {});

/// UTF-8 of a text in UTF-16; what is no character becomes U+FFFD. Not all if the progress is stopped.
QByteArray utf8FromUtf16(std::string_view text, bool isBigEndian, const Progress& progress = {});

/// Ends every line with LF alone: CR, LF, CRLF and LFCR each end one, in any mixture.
QByteArray withPlainLineEnds(QByteArray utf8);

/// Puts U+FFFD in the place of what a family file can't hold. `lines` gets the number of each line changed.
QByteArray withoutUnwritable(QByteArray utf8, std::vector<std::uint32_t>& lines);

} // namespace lineara
