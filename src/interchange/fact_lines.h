#pragma once

#include "gedcom_tree.h"
#include "imported_index.h"
#include "interchange/further_facts.h"

#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

namespace lineara {

class RecordNames;
class SourceRecord;

/// Facts as they come in, listed or only counted.
class FactSheet
{
public:
    explicit FactSheet(bool isListing) : isListing_(isListing) {}

    /// The facts from here on stand below this heading, which is made only if there are any.
    void begin(std::function<QString()> heading);

    /// `make` is called only where facts are listed.
    template<class Make>
    void add(Make make)
    {
        ++count_;
        if (isListing_)
            list(make());
    }

    std::size_t count() const { return count_; }
    std::vector<FurtherFact> takeFacts() { return std::move(facts_); }

private:
    void list(FurtherFact fact);

    bool isListing_;
    std::size_t count_ = 0;
    std::vector<FurtherFact> facts_;
    std::function<QString()> heading_; // until it is made
    int indent_ = 0;
};

/// What becomes of a line.
enum class Telling : std::uint8_t
{
    Fact,
    OnlyBelow, ///< a field says what it says, but not what stands below it
    Nothing    ///< nor is what stands below it told
};

/// Tells the lines of one record. Those that named a person who was removed are left out, with what stands below them.
class FactLines
{
public:
    using Judge = std::function<Telling(NodeIndex)>;

    /// The record, its tree, the index, the names and the sheet outlive this.
    FactLines(
        const SourceRecord& record, const GedcomTree& tree, const ImportedIndex& index, RecordNames& names,
        FactSheet& sheet, Judge judge = [](NodeIndex) { return Telling::Fact; })
        : tree_(tree), names_(names), sheet_(sheet), judge_(std::move(judge)), missed_(record, index)
    {}

    /// A line of level 1, as it is judged.
    void tell(NodeIndex line) { tell(line, {}, 0); }
    /// The line as a fact that is called so.
    void tellFact(NodeIndex line, const QString& label) { tellFact(line, label, 0); }
    /// What stands below the line alone, called by that, too, if it has a label: "Birth: Place".
    void tellBelow(NodeIndex line, const QString& label = {});
    /// The lines without a place in the tree.
    void tellStrays();

private:
    void tell(NodeIndex line, const QString& above, int depth);
    void tellFact(NodeIndex line, const QString& label, int depth);
    void tellBelow(NodeIndex parent, const QString& above, int depth);

    const GedcomTree& tree_;
    RecordNames& names_;
    FactSheet& sheet_;
    Judge judge_;
    MissedPointers missed_;
};

} // namespace lineara
