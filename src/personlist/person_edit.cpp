#include "person_edit.h"

#include "model/object_context.h"

namespace lineara {

PersonEdit::PersonEdit(ObjectContext& context, RecordId person)
    : context_(context), person_(person), replays_(context.observe([this](const Change& change) {
          if (std::holds_alternative<Replayed>(change))
              endVisit();
      }))
{}

Person* PersonEdit::person() const
{
    return context_.person(person_);
}

void PersonEdit::change(const QString& stepName, const std::function<void(Person&)>& change)
{
    if (!person())
        return;
    Journal& journal = context_.journal();
    // Another step may have been begun since the visit's own; or, where all changes were changed back, an earlier one
    // opened again.
    const bool isOpen = step_ && journal.latestStep() == *step_ && journal.undoStep() == step_;
    if (!isOpen || stepName_ != stepName) {
        step_ = journal.begin(stepName);
        stepName_ = stepName;
    }
    change(*person());
}

} // namespace lineara
