#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace lineara {

/// The text with every character that no XML reader accepts replaced by U+FFFD: control characters other than tab, line
/// feed and carriage return, halves of surrogate pairs, U+FFFE and U+FFFF. Sets `repaired`, if given, to whether
/// anything was replaced; a sound text comes back as it is, without a copy.
QString writableText(QString text, bool* repaired = nullptr);

/// An absent text stays absent.
std::optional<QString> writableText(std::optional<QString> text);

/// The same for a text in UTF-8; bytes that are none are replaced as well.
QByteArray writableUtf8(QByteArray text);

} // namespace lineara
