#pragma once

#include "interchange/gedcom_import.h"

#include <QString>

#include <cstdint>
#include <string_view>
#include <vector>

namespace lineara {

/// A piece of the file fit to stand in a sentence: quoted, shortened, without anything that can't be printed.
QString inQuotes(std::string_view utf8);

/// Collects what has to be told about an import, line by line, and counts it.
class ImportNotes
{
public:
    /// Notes kept as sentences; what goes beyond is counted and told as one sum.
    static constexpr std::size_t mostNotes = 1'000'000;

    void unreadable(std::uint32_t line, const QString& what);
    void notTaken(std::uint32_t line, const QString& what);
    void refused(std::uint32_t line, const QString& what);
    /// For a line that was taken, but not exactly as it stands.
    void remark(std::uint32_t line, const QString& what);
    /// For what concerns the file as a whole; told first.
    void aboutFile(const QString& what);

    /// Fills the counts and the notes, in the order of the file's lines.
    void writeTo(ImportReport& report);

private:
    struct Note
    {
        std::uint32_t line;
        QString text;
    };
    void add(std::uint32_t line, const QString& what);

    std::vector<Note> notes_;
    std::size_t unreadable_ = 0;
    std::size_t notTaken_ = 0;
    std::size_t refused_ = 0;
    std::size_t untold_ = 0;
};

} // namespace lineara
