#pragma once

#include "family_sketch.h"

#include "layout/tidy.h"

#include <QString>

#include <cstdint>
#include <map>
#include <vector>

namespace lineara::layout::sketch {

/// A family with places, edited as the program does it: newcomers come to stand close beside whom they are linked with,
/// the engine gives rows, and rows whose members changed are spaced with nodes of the greatest width.
class EditedFamily
{
public:
    using Places = std::vector<std::int32_t>;
    using Rows = std::map<Generation, std::vector<PersonIndex>>;

    /// The genealogy of this name, among the test data or in another folder, in the engine's rows and tidied up.
    static EditedFamily imported(const char* name, const QString& folder = QStringLiteral(LINEARA_TEST_DATA "/gedcom"));

    std::size_t persons() const { return links_.persons(); }
    /// Who is linked with whom; the rows are to be asked for below.
    const Sketch& links() const { return links_; }
    const Places& places() const { return places_; }
    /// Everybody from left to right, row by row.
    Rows rows() const;

    /// Somebody new on one side of a relative.
    PersonIndex addPartner(PersonIndex of, bool isLeft);
    PersonIndex addParent(PersonIndex of, bool isLeft);
    /// A child of two, which comes to stand beside the first.
    PersonIndex addChild(PersonIndex first, PersonIndex second, bool isLeft);
    void tidyUp();
    void tidyUp(const std::vector<PersonIndex>& selected);

private:
    PersonIndex addBeside(PersonIndex relative, bool isLeft, Generation generation);
    FamilyGraph graph() const;
    TidyTask task(const FamilyGraph& family) const;
    void runEngine();
    void space();
    void spaceRow(const std::vector<PersonIndex>& row);
    std::vector<bool> stoodTogether(const std::vector<PersonIndex>& row) const;

    Sketch links_;
    std::vector<std::uint64_t> numbers_;
    std::vector<std::int32_t> birthYears_;
    std::vector<Generation> generations_;
    Places places_;
    Rows spacedRows_;
};

} // namespace lineara::layout::sketch
