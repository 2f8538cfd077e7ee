#pragma once

#include "platform/outcome.h"

#include <QByteArray>
#include <QString>

#include <string_view>

namespace lineara {

class ImportNotes;

/// The text of a GEDCOM file as UTF-8, without a byte order mark; a view into `bytes`. What a file says about its
/// character set is believed only where its bytes agree: a file of plain ASCII is read whatever it declares.
/// Fails for anything that is not UTF-8, naming the character set. `name` is how messages call the file.
Outcome<std::string_view> gedcomText(const QByteArray& bytes, const QString& name, ImportNotes& notes);

} // namespace lineara
