#pragma once

#include "model/record.h"

#include <QString>

#include <optional>

namespace lineara {

/// What of a family is selected: nothing, one person or one link.
struct Selection
{
    static QString none() { return QStringLiteral("none"); }
    static QString ofPerson() { return QStringLiteral("person"); }

    /// "none", "person", or the type of the selected link.
    QString type = none();
    std::optional<RecordId> person; ///< of type "person" only
    /// Ends of the link that was selected last; of meaning only while a link is selected.
    std::optional<RecordId> from;
    std::optional<RecordId> to;
    bool isRemovable = false;

    bool isLink() const { return type != none() && type != ofPerson(); }
};

} // namespace lineara
