#include "interchange/further_facts.h"

#include "gedcom_notes.h"
#include "import_texts.h"
#include "node_ledger.h"
#include "person_reading.h"
#include "tag_labels.h"

#include <QStringBuilder>

namespace lineara {
namespace {

/// Lists the lines of one record that have no field.
class FactLister
{
public:
    explicit FactLister(const QByteArray& text)
        : records_(GedcomRecords::read({text.constData(), static_cast<std::size_t>(text.size())}, {})),
          ledger_(tree_, notes_), sharedNotes_(records_)
    {}

    std::vector<FurtherFact> list()
    {
        if (records_.size() == 0)
            return {};
        tree_.read(records_[0], records_.isVersionSeven());
        ledger_.open();
        if (records_[0].tag == "INDI")
            readPerson(tree_, ledger_, sharedNotes_);
        if (tree_.size() > 0)
            addBelow(0, {}, 0);
        for (const GedcomStray& stray : tree_.strays())
            addStray(stray.line);
        return std::move(facts_);
    }

private:
    /// Whether parents of the person may be no parents in the family, which takes two.
    bool hasSeveralFamiliesAsAChild() const
    {
        int families = 0;
        for (const NodeIndex index : tree_.children(0))
            families += tree_[index].line.tag == "FAMC" ? 1 : 0;
        return families > 1;
    }

    /// What other records say, too, or what is only to be found in them.
    bool isInTheFamily(NodeIndex index) const
    {
        const GedcomLine& line = tree_[index].line;
        const bool isAsAChild = line.tag == "FAMC" && !hasSeveralFamiliesAsAChild();
        const bool isFamily =
            isAsAChild || line.tag == "FAMS" || line.tag == "HUSB" || line.tag == "WIFE" || line.tag == "CHIL";
        const bool isNote = records_[0].tag == "INDI" && (line.tag == "NOTE" || line.tag == "SNOTE");
        return line.isPointer && line.level == 1 && (isFamily || isNote);
    }

    /// `above` are the labels of the lines that fields hold, down to the parent.
    void addBelow(NodeIndex parent, const QString& above, int depth)
    {
        for (const NodeIndex index : tree_.children(parent)) {
            if (isContinuation(tree_[index].line.tag))
                continue;
            const QString label = above % tagLabel(tree_[index].line.tag);
            const bool isHeld = ledger_.fate(index) == LineFate::Taken || isInTheFamily(index);
            if (!isHeld)
                facts_.push_back({label, valueOf(index), depth});
            addBelow(index, isHeld ? QString(label % u": ") : QString(), isHeld ? depth : depth + 1);
        }
    }

    QString valueOf(NodeIndex index) const
    {
        const GedcomLine& line = tree_[index].line;
        if (!line.isPointer)
            return tree_.text(index);
        return u'@' % QString::fromUtf8(line.value.data(), static_cast<qsizetype>(line.value.size())) % u'@';
    }

    void addStray(const GedcomLine& line)
    {
        const auto value = QString::fromUtf8(line.value.data(), static_cast<qsizetype>(line.value.size()));
        const bool isReadable = line.defect == LineDefect::None;
        facts_.push_back({isReadable ? tagLabel(line.tag) : ImportTexts::tr("Unreadable line"), value, 0});
    }

    GedcomRecords records_;
    ImportNotes notes_;
    GedcomTree tree_;
    NodeLedger ledger_;
    SharedNotes sharedNotes_;
    std::vector<FurtherFact> facts_;
};

} // namespace

std::vector<FurtherFact> furtherFacts(const QByteArray& recordText)
{
    return FactLister(recordText).list();
}

} // namespace lineara
