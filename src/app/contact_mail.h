#pragma once

#include <QString>

namespace lineara {

/// A command's text as a reader sees it: without the mark of the underlined letter.
QString withoutMnemonic(const QString& text);

/// The address that begins a mail to the makers. The title becomes its subject, with "%20" for every space and
/// everything else as it stands.
QString contactAddress(const QString& title);

} // namespace lineara
