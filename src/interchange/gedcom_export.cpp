#include "interchange/gedcom_export.h"

#include "gedcom_export_changes.h"
#include "gedcom_export_dialect.h"
#include "gedcom_export_objects.h"
#include "gedcom_export_pictures.h"
#include "gedcom_export_xrefs.h"
#include "gedzip_writing.h"
#include "import_texts.h"
#include "media_files.h"
#include "store/atomic_file.h"

#include <QFileInfo>
#include <QSet>

#include <algorithm>

namespace lineara {
namespace {

constexpr double foundPart = 0.7;
constexpr double lookedPart = 0.75;
constexpr double textPart = 0.9;

GedcomDialect dialectOf(GedcomFormat format)
{
    return format == GedcomFormat::Gedcom551 ? GedcomDialect::Five : GedcomDialect::Seven;
}

std::string formatLines(GedcomDialect dialect)
{
    return dialect == GedcomDialect::Five ? "1 GEDC\n2 VERS 5.5.1\n2 FORM LINEAGE-LINKED\n" : "1 GEDC\n2 VERS 7.0\n";
}

std::string charsetLine(GedcomDialect dialect)
{
    return dialect == GedcomDialect::Five ? "1 CHAR UTF-8\n" : "";
}

/// The header of a family that has none. 5.5.1 demands that it names a submitter, and that this one has a name.
std::string newHeader(const KeptRecords& kept, GedcomDialect dialect)
{
    std::string header = "0 HEAD\n" + formatLines(dialect) + "1 SOUR LINEARA\n2 NAME Lineara\n";
    if (dialect == GedcomDialect::Seven)
        return header;
    const std::string submitter = '@' + ExportXrefs(kept).take("U1") + '@';
    return header + "1 SUBM " + submitter + '\n' + charsetLine(dialect) + "0 " + submitter + " SUBM\n1 NAME Lineara\n";
}

/// Behind the lines that skip a level: they would belong to whatever came ahead of them.
EditedRecord::Line placeForForm(const EditedRecord& header)
{
    EditedRecord::Line place = 1;
    while (place < header.size() && header[place].level.value_or(2) > 1)
        ++place;
    return place;
}

/// The same lines below the form would belong to its new version, and be left out the next time.
void withdrawOrphans(EditedRecord& header, EditedRecord::Line form)
{
    const int level = header[form].level.value_or(0);
    const auto end = header.end(form);
    for (auto line = form + 1; line < end && header[line].level != level + 1; ++line) {
        if (header[line].level && (header[line].tag == "VERS" || header[line].tag == "FORM"))
            header.strikeAlone(line);
    }
}

/// Leaves out how the file was written. Lines that can't be read, or stand there by mistake, are no part of that.
void withdrawForm(EditedRecord& header, EditedRecord::Line form)
{
    header.strikeAlone(form);
    withdrawOrphans(header, form);
    for (const EditedRecord::Line line : header.children(form)) {
        if (header[line].tag != "VERS" && header[line].tag != "FORM")
            continue;
        if (const auto version = header.child(line, "VERS"))
            header.strikeAlone(*version);
        header.strikeAlone(line);
    }
}

/// The kept header says what it said, but for how the file is written now.
std::string changedHeader(EditedRecord header, GedcomDialect dialect)
{
    const auto format = header.child(0, "GEDC");
    const auto charset = header.child(0, "CHAR");
    header.insert(format.value_or(placeForForm(header)), formatLines(dialect));
    header.insert(charset.value_or(header.size()), charsetLine(dialect));
    for (const auto& line : {format, charset}) {
        if (line)
            withdrawForm(header, *line);
    }
    return header.result();
}

/// Puts the records one behind the other.
class GenealogyText
{
public:
    /// `changes` give the records that are made of others their names.
    GenealogyText(const KeptRecords& kept, GedcomChanges& changes, GedcomDialect dialect)
        : kept_(kept), changes_(changes), dialect_(dialect), objects_([&changes] { return changes.nextXref('O'); })
    {}

    QByteArray text(const Progress& progress)
    {
        bool hasHeader = false;
        for (std::size_t record = 0; record < kept_.size(); ++record)
            hasHeader = hasHeader || kept_[record].tag == "HEAD";
        if (!hasHeader)
            append(newHeader(kept_, dialect_));
        for (std::size_t record = 0; record < kept_.size(); ++record) {
            if (!progress.goesOn(record, kept_.size()))
                return {};
            addKept(record);
        }
        if (!isEnded_)
            end("0 TRLR\n");
        return std::move(out_);
    }

private:
    void addKept(std::size_t record)
    {
        const KeptRecord& kept = kept_[record];
        if (kept.tag == "HEAD" && !hasHeader_) {
            hasHeader_ = true;
            append(converted(changedHeader(EditedRecord(changes_.textOf(record), kept_.dialect()), dialect_)));
        } else if (kept.tag == "TRLR" && !isEnded_) {
            end(converted(changes_.textOf(record)));
        } else {
            append(converted(changes_.textOf(record)));
        }
    }

    /// Whatever was made of lines below the trailer stands before it.
    void end(std::string_view trailer)
    {
        isEnded_ = true;
        append(changes_.newRecords());
        const std::size_t behind = std::min(trailer.find("\n0 "), trailer.size() - 1) + 1;
        append(trailer.substr(behind));
        append(trailer.substr(0, behind));
    }

    std::string converted(std::string_view lines) const
    {
        if (kept_.dialect() == dialect_)
            return std::string(lines);
        const bool hasObject = lines.find("OBJE") != std::string_view::npos;
        if (dialect_ == GedcomDialect::Five) {
            std::string five = convertedLines(lines, dialect_);
            return hasObject ? objectInFive(five) : five;
        }
        return convertedLines(hasObject ? objects_.of(lines) : std::string(lines), dialect_);
    }

    void append(std::string_view lines)
    {
        out_.append(lines.data(), static_cast<qsizetype>(lines.size()));
        if (!lines.empty() && lines.back() != '\n')
            out_.append('\n');
    }

    const KeptRecords& kept_;
    const GedcomChanges& changes_;
    GedcomDialect dialect_;
    ObjectsInSeven objects_;
    bool hasHeader_ = false;
    bool isEnded_ = false;
    QByteArray out_;
};

Failure stoppedExport()
{
    return Failure{ImportTexts::tr("The export was stopped.")};
}

/// An export before it is put into its file.
struct Genealogy
{
    QByteArray bytes;
    ExportReport report;
};

/// Tells which files are in an archive as its readers will look for them.
IsFileThere filesOf(const ArchiveFiles& archive)
{
    QSet<QString> likenesses;
    for (const auto& [place, bytes] : archive)
        likenesses.insert(likenessOf(QString::fromStdString(place)));
    return [likenesses](const QString& name) {
        return std::ranges::any_of(placesInArchive(name),
                                   [&](const QString& place) { return likenesses.contains(likenessOf(place)); });
    };
}

/// `isThere` tells of files beside a genealogy that is no archive.
Outcome<Genealogy> genealogyOf(const FamilyContent& family, GedcomFormat format, const IsFileThere& isThere,
                               const Progress& progress)
{
    const GedcomDialect dialect = dialectOf(format);
    const bool isArchive = format == GedcomFormat::Gedzip;
    const ExportGraph graph(family);
    const KeptRecords kept(family, graph);
    GedcomChanges changes(family, graph, kept, dialect);
    if (auto found = changes.find(progress.stage(0, foundPart)); found.failed())
        return progress.isStopped() ? stoppedExport() : found.failure();
    const auto pictures = isArchive ? exportPictures(family, kept, changes, progress)
                                    : leavePictures(family, kept, changes, isThere, progress);
    changes.finish();
    Genealogy genealogy;
    genealogy.report.picturesLeftOut = pictures.leftOut;
    genealogy.report.missingFiles = missingFiles(kept, changes, isArchive ? filesOf(pictures.files) : isThere,
                                                 progress.stage(foundPart, lookedPart));
    genealogy.bytes = GenealogyText(kept, changes, dialect).text(progress.stage(lookedPart, isArchive ? textPart : 1));
    if (progress.isStopped())
        return stoppedExport();
    if (isArchive) {
        auto archive = gedzipOf(genealogy.bytes, pictures.files, progress.stage(textPart, 1));
        if (archive.failed())
            return progress.isStopped() ? stoppedExport() : archive.failure();
        genealogy.bytes = std::move(archive.value());
    }
    if (!progress.goesOn(1))
        return stoppedExport();
    return genealogy;
}

/// Hands the bytes on in pieces; false if it is stopped meanwhile.
bool handOver(const QByteArray& bytes, const store::ByteSink& sink, const Progress& progress)
{
    constexpr qsizetype pieceSize = qsizetype{1024} * 1024;
    for (qsizetype at = 0; at < bytes.size(); at += pieceSize) {
        const auto size = static_cast<std::size_t>(std::min(pieceSize, bytes.size() - at));
        if (!progress.goesOn(static_cast<double>(at) / static_cast<double>(bytes.size())) ||
            !sink({bytes.constData() + at, size}))
            return false;
    }
    return progress.goesOn(1);
}

} // namespace

Outcome<QByteArray> gedcomOf(const FamilyContent& family, GedcomFormat format, const Progress& progress)
{
    // Where the text will lie, and what beside it, is not known.
    auto genealogy = genealogyOf(
        family, format, [](const QString&) { return true; }, progress);
    return genealogy.failed() ? Outcome<QByteArray>(genealogy.failure()) : std::move(genealogy.value().bytes);
}

Outcome<ExportReport> exportGedcomFile(const FamilyContent& family, const QString& path, GedcomFormat format,
                                       const Progress& progress)
{
    constexpr double madePart = 0.9;
    const auto unable = [&path](const Failure& failure) {
        return Failure{ImportTexts::tr("“%1” can't be exported: %2").arg(QFileInfo(path).fileName(), failure.message)};
    };
    const FolderMediaFiles folder(QFileInfo(path).absolutePath());
    const auto isBeside = [&folder](const QString& name) { return folder.has(name); };
    const auto genealogy = genealogyOf(family, format, isBeside, progress.stage(0, madePart));
    if (genealogy.failed())
        return unable(genealogy.failure());
    const auto written = store::replaceFile(path, [&](const store::ByteSink& sink) {
        return handOver(genealogy.value().bytes, sink, progress.stage(madePart, 1));
    });
    if (written.failed())
        return progress.isStopped() ? unable(stoppedExport()) : written.failure();
    return genealogy.value().report;
}

} // namespace lineara
