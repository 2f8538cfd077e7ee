#include "fact_lines.h"

#include "import_texts.h"
#include "record_names.h"
#include "tag_labels.h"

#include <QStringBuilder>

namespace lineara {

void FactSheet::begin(std::function<QString()> heading)
{
    heading_ = std::move(heading);
    indent_ = 1;
}

void FactSheet::list(FurtherFact fact)
{
    if (heading_) {
        facts_.push_back({heading_(), {}, 0, true});
        heading_ = {};
    }
    fact.depth += indent_;
    facts_.push_back(std::move(fact));
}

void FactLines::tell(NodeIndex line, const QString& above, int depth)
{
    const QString label = above % tagLabel(tree_[line].line.tag);
    switch (judge_(line)) {
    case Telling::Fact:
        tellFact(line, label, depth);
        break;
    case Telling::OnlyBelow:
        tellBelow(line, label % u": ", depth);
        break;
    case Telling::Nothing:
        break;
    }
}

void FactLines::tellFact(NodeIndex line, const QString& label, int depth)
{
    if (missed_.contains(tree_[line].line))
        return;
    sheet_.add([&] { return FurtherFact{label, names_.valueOf(tree_, line), depth}; });
    tellBelow(line, {}, depth + 1);
}

void FactLines::tellBelow(NodeIndex line, const QString& label)
{
    tellBelow(line, label.isEmpty() ? label : QString(label % u": "), 0);
}

void FactLines::tellBelow(NodeIndex parent, const QString& above, int depth)
{
    for (const NodeIndex line : tree_.children(parent)) {
        if (!isContinuation(tree_[line].line.tag))
            tell(line, above, depth);
    }
}

void FactLines::tellStrays()
{
    for (const GedcomStray& stray : tree_.strays()) {
        const GedcomLine& line = stray.line;
        if (missed_.contains(line))
            continue;
        const QString label = line.defect == LineDefect::None ? tagLabel(line.tag) : ImportTexts::tr("Unreadable line");
        sheet_.add([&] { return FurtherFact{label, names_.valueOf(line), 0}; });
    }
}

} // namespace lineara
