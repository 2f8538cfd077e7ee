#pragma once

#include "model/changes.h"

#include <optional>

namespace lineara {

/// What an undo or a redo has changed, as far as it decides what has to be shown anew.
struct ReplayedChanges
{
    bool members = false;  ///< persons came or went
    bool rows = false;     ///< links or generations changed, or members
    std::size_t moved = 0; ///< persons who were given other places, but for a shift of everybody
    /// The person that the step is about, if it is about one.
    std::optional<RecordId> concerned;

    /// To be called with every change of the replay.
    void add(const Change& change);

private:
    enum class Reason
    {
        None,
        Attribute,
        Link,
        Record
    };
    void concern(RecordId person, Reason reason);
    void add(const LinkChanged& link);
    void addAttributes(PersonAttributes attributes);
    void addRecord(const Record& record);

    Reason reason_ = Reason::None;
};

} // namespace lineara
