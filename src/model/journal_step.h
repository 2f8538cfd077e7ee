#pragma once

#include "journal_entry.h"

#include <QString>

#include <cstddef>
#include <unordered_map>
#include <vector>

namespace lineara {

/// One undoable step: a name and what changed, in order.
class JournalStep
{
public:
    explicit JournalStep(QString name) : name_(std::move(name)) {}

    const QString& name() const { return name_; }

    /// Adds a change. One that only continues an earlier change of the step is merged with that.
    void note(JournalEntry&& entry);

    /// Adds what another step noted after this one.
    void append(JournalStep later);

    /// Nothing more will be noted.
    void close();

    /// A value that went back to where it began leaves no effect; everything else counts as one.
    bool hasEffect(const ObjectContext& context) const;

    void undo(ObjectContext& context);
    void redo(ObjectContext& context);

private:
    bool merge(ValueEntry& entry);
    bool merge(BulkEntry& entry);
    bool merge(ShiftEntry& entry);
    bool merge(PicDataEntry& entry);
    bool merge(LinkEntry& entry);
    bool merge(RecordEntry& entry);
    bool firstOf(std::uint64_t number, PersonAttributes attribute);
    template<class Entry>
    Entry* last();

    QString name_;
    std::vector<JournalEntry> entries_;
    /// The values that have an entry already, while the step is open.
    std::unordered_map<std::uint64_t, PersonAttributes> noted_;
};

} // namespace lineara
