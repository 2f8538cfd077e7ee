#pragma once

#include <QString>
#include <QStringList>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace lineara {

/// What an import did, in numbers and lines. Every line of the file that is not blank counts once: it was taken into
/// the family, kept beside it, told as one that says nothing a family could take, or unreadable. Whatever it was, the
/// record it stands in is kept whole.
struct ImportReport
{
    /// Lines that a person's record has no field for, by the tags that lead to them.
    struct KeptLines
    {
        QString path; ///< "INDI.OCCU"
        std::size_t lines = 0;
        std::uint32_t firstLine = 0;
    };
    /// Links of which the family allows none.
    struct Refusals
    {
        QString reason;
        std::size_t links = 0;
    };

    std::size_t persons = 0;
    std::size_t families = 0;
    std::size_t partnerLinks = 0;   ///< made; each pair of persons once
    std::size_t offspringLinks = 0; ///< made; each pair of parent and child once
    std::size_t refusedLinks = 0;   ///< links that the rules refuse (third parent, cycle, a person to itself)
    std::size_t pictures = 0;       ///< taken as persons' pictures
    std::size_t records = 0;        ///< kept whole
    QStringList leftFiles;          ///< of the archive, which the family does not keep: recordings, further pictures

    std::size_t lines = 0;           ///< that are not blank: the sum of the next four
    std::size_t takenLines = 0;      ///< what they say is in the family
    std::size_t keptLines = 0;       ///< understood as lines, but without a field in a family
    std::size_t notTaken = 0;        ///< told in the notes: they point at nothing, are no dates, ...
    std::size_t unreadableLines = 0; ///< told in the notes

    QString charset;                ///< what the file was read as: "UTF-8", "ANSEL", ...
    QString declaredCharset;        ///< empty if the file names none
    bool isDeclaredWrongly = false; ///< it is in none that the declared name can mean
    QString version;                ///< "5.5.1"; empty if the file names none
    std::vector<KeptLines> kept;    ///< in the order of their first lines
    std::vector<Refusals> refusals;

    /// One sentence per refusal, unreadable line, line not taken and line taken with a change ("ABT 1600" as 1600), in
    /// the order of the file: "line 12: ...". What goes beyond a million sentences is told as a sum.
    QStringList notes;
};

/// The report as a text to read and to save: what came in, what was kept beside, what was refused and why, and after
/// that every note. Ends with a line end.
QString importSummary(const ImportReport& report);

} // namespace lineara
