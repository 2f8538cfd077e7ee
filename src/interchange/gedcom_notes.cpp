#include "gedcom_notes.h"

#include "gedcom_pointer.h"
#include "import_texts.h"
#include "node_ledger.h"

namespace lineara {

QString SharedNotes::read(const GedcomTree& tree, NodeLedger& ledger, NodeIndex line)
{
    const auto record = followPointer(records_, tree, ledger, line, {"NOTE", "SNOTE"});
    if (!record)
        return {};
    const auto [known, isNew] = texts_.try_emplace(*record);
    if (isNew) {
        note_.read(records_[*record], records_.isVersionSeven());
        known->second = note_.text(0);
    }
    if (known->second.size() > mostCharacters - handedOut_) {
        ledger.reject(line, ImportTexts::tr("the notes that persons of this file share are too long in all"));
        return {};
    }
    handedOut_ += known->second.size();
    ledger.take(line);
    return known->second;
}

} // namespace lineara
