#include "node_ledger.h"

#include "import_texts.h"
#include "model/text_hygiene.h"

#include <QStringBuilder>

#include <string>
#include <utility>

namespace lineara {

NodeLedger::NodeLedger(const GedcomTree& tree, ImportNotes& notes)
    : tree_(tree), notes_(notes), settled_(tree.size(), false)
{}

void NodeLedger::takeText(NodeIndex index)
{
    take(index);
    for (const NodeIndex child : tree_.children(index)) {
        if (isContinuation(tree_[child].line.tag))
            take(child);
    }
}

void NodeLedger::reject(NodeIndex index, const QString& why)
{
    take(index);
    notes_.notTaken(lineOf(index), ImportTexts::tr("%1 was not taken: %2").arg(describe(index), why));
}

void NodeLedger::remark(NodeIndex index, const QString& what)
{
    take(index);
    notes_.remark(lineOf(index), describe(index) % u' ' % what);
}

QString NodeLedger::writable(NodeIndex index, QString text)
{
    bool repaired = false;
    text = writableText(std::move(text), &repaired);
    if (repaired)
        remark(index, ImportTexts::tr("held characters that can't be written to a file; they were replaced"));
    return text;
}

void NodeLedger::refuse(NodeIndex index, const QString& why)
{
    take(index);
    notes_.refused(lineOf(index), ImportTexts::tr("%1 was refused: %2").arg(describe(index), why));
}

void NodeLedger::tellRest(const Progress& progress)
{
    for (NodeIndex index = 0; index < tree_.size(); ++index) {
        if (!progress.goesOn(index, tree_.size()))
            return;
        if (!settled_[index])
            reject(index, ImportTexts::tr("a family has no place for it"));
    }
}

QString NodeLedger::describe(NodeIndex index) const
{
    std::string path(tree_[index].line.tag);
    for (auto above = tree_[index].parent; above; above = tree_[*above].parent)
        path.insert(0, std::string(tree_[*above].line.tag) + '.');
    QString shownPath = QString::fromStdString(path);
    const GedcomLine& line = tree_[index].line;
    if (line.value.empty())
        return shownPath;
    if (!line.isPointer)
        return shownPath % u' ' % inQuotes(line.value);
    return shownPath % u' ' % inQuotes(std::string_view(line.value.data() - 1, line.value.size() + 2));
}

} // namespace lineara
