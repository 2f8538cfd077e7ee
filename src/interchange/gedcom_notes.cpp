#include "gedcom_notes.h"

#include "gedcom_pointer.h"
#include "import_texts.h"
#include "node_ledger.h"

namespace lineara {

QString SharedNotes::read(NodeIndex line)
{
    const auto record = followPointer(tree_, ledger_, line, {"NOTE", "SNOTE"});
    if (!record)
        return {};
    const auto [known, isNew] = texts_.try_emplace(*record);
    if (isNew) {
        ledger_.takeText(*record);
        known->second = ledger_.writable(*record, tree_.text(*record));
    }
    if (known->second.size() > mostCharacters - handedOut_) {
        ledger_.reject(line, ImportTexts::tr("the notes that persons of this file share are too long in all"));
        return {};
    }
    handedOut_ += known->second.size();
    ledger_.take(line);
    return known->second;
}

} // namespace lineara
