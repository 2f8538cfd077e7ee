#pragma once

#include "gedcom_export_text.h"
#include "gedcom_line.h"

#include <QString>

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lineara {

/// The lines of a kept record while it is brought up to date. Whatever is not touched comes out byte by byte.
class EditedRecord
{
public:
    using Line = std::size_t;

    /// `text` outlives the record; its lines are ended by LF.
    EditedRecord(std::string_view text, GedcomDialect dialect);

    std::size_t size() const { return lines_.size(); }
    const GedcomLine& operator[](Line line) const { return lines_[line].read; }
    GedcomDialect dialect() const { return dialect_; }

    /// One past the last line below this one.
    Line end(Line line) const;
    /// Lines one level below that were not struck, with this tag if it is given, in order.
    std::vector<Line> children(Line parent, std::string_view tag = {}) const;
    std::optional<Line> child(Line parent, std::string_view tag) const;
    /// The value with its continuations, as the import reads it.
    QString text(Line line) const;
    bool isStruck(Line line) const { return lines_[line].isStruck; }
    /// These lines as they stood, but so many levels deeper. Lines that can't be read have none.
    std::string shifted(Line begin, Line end, int levels) const;

    /// Leaves out the line and all below it.
    void strike(Line line);
    /// Leaves out the line and stays with what stands below it.
    void strikeAlone(Line line);
    /// Puts other lines in the place of this one and its continuations.
    void replace(Line line, std::string lines);
    /// Gives the line another tag; what stands below it stays.
    void rename(Line line, std::string_view tag);
    /// Adds lines in front of this place; what is added twice at one place keeps the order of adding.
    void insert(Line before, std::string_view lines);

    bool isChanged() const { return isChanged_; }
    std::string result() const;

private:
    struct Entry
    {
        std::string_view raw; ///< without its line end
        GedcomLine read;      ///< without a level where the line is none
        bool isStruck = false;
    };

    void strikeContinuations(Line line);

    GedcomDialect dialect_;
    std::vector<Entry> lines_;
    std::map<Line, std::string> replaced_;
    std::map<Line, std::string> inserted_;
    bool isChanged_ = false;
};

} // namespace lineara
