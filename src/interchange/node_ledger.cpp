#include "node_ledger.h"

#include "import_texts.h"

#include <QStringBuilder>

#include <string>

namespace lineara {
namespace {

QString reason(LineDefect defect)
{
    switch (defect) {
    case LineDefect::NoLevel:
        return ImportTexts::tr("it does not start with a level");
    case LineDefect::UnterminatedXref:
        return ImportTexts::tr("its cross-reference has no closing @");
    case LineDefect::NoTag:
        return ImportTexts::tr("it has no tag");
    case LineDefect::None:
        break;
    }
    return {};
}

QString withTag(const GedcomLine& line)
{
    const auto tag = QString::fromUtf8(line.tag.data(), static_cast<qsizetype>(line.tag.size()));
    return line.value.empty() ? tag : QString(tag % u' ' % inQuotes(line.value));
}

} // namespace

void NodeLedger::close()
{
    countNodes();
    for (const GedcomStray& stray : tree_.strays())
        tellStray(stray);
}

void NodeLedger::countNodes()
{
    std::size_t taken = 0;
    paths_.assign(tree_.size(), KeptPaths::root);
    for (NodeIndex index = 0; index < tree_.size(); ++index) {
        if (fates_[index] == LineFate::Kept)
            notes_.kept().count(pathOf(index), tree_[index].line.number);
        else if (fates_[index] != LineFate::Told)
            ++taken;
    }
    notes_.taken(taken);
}

KeptPaths::Path NodeLedger::pathOf(NodeIndex index)
{
    // From the record down, as far as it was not asked about before: most lines are taken, and need no path.
    std::vector<NodeIndex>& unknown = steps_;
    unknown.clear();
    std::optional<NodeIndex> at = index;
    for (; at && paths_[*at] == KeptPaths::root; at = tree_[*at].parent)
        unknown.push_back(*at);
    KeptPaths::Path path = at ? paths_[*at] : KeptPaths::root;
    for (; !unknown.empty(); unknown.pop_back()) {
        path = notes_.kept().below(path, tree_[unknown.back()].line.tag);
        paths_[unknown.back()] = path;
    }
    return path;
}

void NodeLedger::tellStray(const GedcomStray& stray)
{
    const GedcomLine& line = stray.line;
    if (line.defect != LineDefect::None)
        notes_.unreadable(line.number,
                          ImportTexts::tr("%1 could not be read: %2").arg(inQuotes(line.value), reason(line.defect)));
    else if (stray.below)
        notes_.notTaken(line.number, ImportTexts::tr("%1 was not taken: it belongs to line %2, which was not taken")
                                         .arg(withTag(line))
                                         .arg(*stray.below));
    else
        notes_.notTaken(line.number,
                        ImportTexts::tr("%1 was not taken: its level skips at least one").arg(withTag(line)));
}

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
    if (fates_[index] != LineFate::Told)
        notes_.notTaken(tree_[index].line.number, ImportTexts::tr("%1 was not taken: %2").arg(describe(index), why));
    fates_[index] = LineFate::Told;
}

void NodeLedger::remark(NodeIndex index, const QString& what)
{
    notes_.remark(tree_[index].line.number, describe(index) % u' ' % what);
}

void NodeLedger::refuse(NodeIndex index, const QString& reason, const QString& why)
{
    take(index);
    notes_.refused(tree_[index].line.number, reason, ImportTexts::tr("%1 was refused: %2").arg(describe(index), why));
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
