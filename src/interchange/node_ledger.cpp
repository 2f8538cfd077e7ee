#include "node_ledger.h"

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
    notes_.notTaken(lineOf(index), describe(index) % u" was not taken: " % why);
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
        remark(index, QStringLiteral("held characters that can't be written to a file; they were replaced"));
    return text;
}

void NodeLedger::refuse(NodeIndex index, const QString& why)
{
    take(index);
    notes_.refused(lineOf(index), describe(index) % u" was refused: " % why);
}

void NodeLedger::tellRest()
{
    for (NodeIndex index = 0; index < tree_.size(); ++index) {
        if (!settled_[index])
            reject(index, QStringLiteral("a family has no place for it"));
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
