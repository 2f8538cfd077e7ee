#pragma once

#include "model/journal.h"
#include "model/record.h"
#include "platform/observer_list.h"

#include <QString>

#include <functional>
#include <optional>

namespace lineara {

class ObjectContext;
class Person;

/// Changes one person as its user edits it: whatever is changed during one visit to a field is one step of the history,
/// and a visit without a change is none.
class PersonEdit
{
public:
    /// The context must outlive the edit.
    PersonEdit(ObjectContext& context, RecordId person);

    /// Nullptr if the record is gone.
    Person* person() const;

    /// Has the person changed, within a step of that name. Nothing happens if the record is gone.
    void change(const QString& stepName, const std::function<void(Person&)>& change);

    /// The next change belongs to a step of its own.
    void endVisit() { step_.reset(); }

private:
    ObjectContext& context_;
    RecordId person_;
    std::optional<StepId> step_; // of the visit, once something was changed
    QString stepName_;
    Subscription replays_;
};

} // namespace lineara
