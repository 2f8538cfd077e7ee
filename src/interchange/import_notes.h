#pragma once

#include "interchange/import_report.h"
#include "kept_paths.h"

#include <QString>

#include <cstdint>
#include <string_view>
#include <vector>

namespace lineara {

/// A piece of the file fit to stand in a sentence: quoted, shortened, without anything that can't be printed.
QString inQuotes(std::string_view utf8);

/// The text without anything that can't be printed.
QString printable(QString text);

/// Collects what has to be told about an import, line by line, and counts it.
class ImportNotes
{
public:
    /// Notes kept as sentences; what goes beyond is counted and told as one sum.
    static constexpr std::size_t mostNotes = 1'000'000;

    void unreadable(std::uint32_t line, const QString& what);
    void notTaken(std::uint32_t line, const QString& what);
    /// `reason` says it of any link, `what` of this one.
    void refused(std::uint32_t line, const QString& reason, const QString& what);
    /// For a line that was taken, but not exactly as it stands.
    void remark(std::uint32_t line, const QString& what);
    /// For what concerns the file as a whole; told first.
    void aboutFile(const QString& what);

    void taken(std::size_t lines) { taken_ += lines; }
    KeptPaths& kept() { return kept_; }

    /// Fills the counts of lines and refusals and the notes, in the order of the file's lines.
    void writeTo(ImportReport& report);

private:
    struct Note
    {
        std::uint32_t line;
        QString text;
    };
    void add(std::uint32_t line, const QString& what);

    std::vector<Note> notes_;
    std::vector<ImportReport::Refusals> refusals_;
    KeptPaths kept_;
    std::size_t taken_ = 0;
    std::size_t unreadable_ = 0;
    std::size_t notTaken_ = 0;
    std::size_t untold_ = 0;
};

} // namespace lineara
