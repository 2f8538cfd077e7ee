#include "genealogy_file.h"

#include "gedcom_decoding.h"
#include "gedcom_line.h"
#include "gedzip.h"
#include "import_failure.h"
#include "import_texts.h"
#include "interchange/gedcom_import.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <utility>

namespace lineara {
namespace {

/// What is looked at to tell a genealogy from something else.
constexpr qsizetype beginningSize = 64 * 1024;

/// The beginning as an ASCII-compatible text without a byte order mark.
QByteArray asText(QByteArray beginning)
{
    if (beginning.startsWith("\xEF\xBB\xBF"))
        return beginning.mid(3);
    const bool isMarked = beginning.startsWith("\xFF\xFE") || beginning.startsWith("\xFE\xFF");
    const bool isUtf16 = beginning.size() > 1 && (isMarked || (beginning[0] == '\0') != (beginning[1] == '\0'));
    if (!isUtf16)
        return beginning;
    const bool isBigEndian = beginning.startsWith('\xFE') || beginning[0] == '\0';
    return utf8FromUtf16({beginning.constData(), static_cast<std::size_t>(beginning.size())}, isBigEndian);
}

/// Whether the first line of a record is one that genealogies have. A line that merely starts with a 0 stands in many
/// a text.
bool isOfGenealogy(const GedcomLine& line)
{
    static constexpr std::array<std::string_view, 10> tags = {"HEAD", "INDI", "FAM",  "NOTE", "SNOTE",
                                                              "SOUR", "REPO", "OBJE", "SUBM", "TRLR"};
    return line.level == 0 && (line.tag.starts_with('_') || (!line.xref.empty() && !line.tag.empty()) ||
                               std::find(tags.begin(), tags.end(), line.tag) != tags.end());
}

bool looksLikeGedcom(const QByteArray& beginning)
{
    const QByteArray text = asText(beginning);
    GedcomLineReader lines(std::string_view(text.constData(), static_cast<std::size_t>(text.size())));
    while (const auto line = lines.next()) {
        if (isOfGenealogy(*line))
            return true;
    }
    return false;
}

bool isZip(const QByteArray& beginning)
{
    return beginning.startsWith("PK\x03\x04") || beginning.startsWith("PK\x05\x06");
}

template<std::size_t Count>
bool startsWithAny(const QByteArray& beginning, const std::array<QByteArray, Count>& starts)
{
    return std::any_of(starts.begin(), starts.end(),
                       [&](const QByteArray& start) { return beginning.startsWith(start); });
}

/// Whether no genealogy can begin so, whatever lines follow: pages about genealogies quote some, and so do notes of
/// family files.
bool isSurelyElse(const QByteArray& beginning)
{
    const std::array<QByteArray, 8> starts = {
        "%PDF", "\x1F\x8B", "\x89PNG", "\xFF\xD8\xFF", "GIF8", "RIFF", QByteArray("II*\0", 4), QByteArray("MM\0*", 4)};
    return startsWithAny(beginning, starts) || asText(beginning).trimmed().startsWith('<');
}

/// "it is a picture, not a GEDCOM file."
QString whatElse(const QByteArray& beginning)
{
    if (std::all_of(beginning.begin(), beginning.end(), [](char c) { return c == '\0'; }))
        return ImportTexts::tr("it holds nothing but zeros, as files do that were not saved to their end.");
    const std::array<QByteArray, 7> pictures = {"\x89PNG", "\xFF\xD8\xFF", "GIF8", "BM", "II*", "MM", "RIFF"};
    if (startsWithAny(beginning, pictures))
        return ImportTexts::tr("it is a picture, not a GEDCOM file.");
    if (beginning.startsWith("%PDF"))
        return ImportTexts::tr("it is a PDF document, not a GEDCOM file.");
    if (beginning.startsWith("\x1F\x8B"))
        return ImportTexts::tr("it is compressed; unpack it and import what comes out.");
    const QByteArray start = asText(beginning).trimmed().left(beginningSize / 64).toLower();
    if (start.startsWith("<!doctype html") || start.contains("<html"))
        return ImportTexts::tr("it is a web page, not a GEDCOM file.");
    if (start.startsWith("<?xml"))
        return ImportTexts::tr("it is an XML file, not a GEDCOM file.");
    return ImportTexts::tr("it is not a GEDCOM file.");
}

/// The rest of the file, at most one byte more than can be read.
Outcome<QByteArray> readOn(QFile& file, QByteArray bytes, const QString& name, const Progress& progress)
{
    constexpr qint64 pieceSize = qint64{4} * 1024 * 1024;
    const qint64 expected = std::min(file.size(), mostGenealogyBytes);
    bytes.reserve(expected + 1);
    while (bytes.size() <= mostGenealogyBytes) {
        const QByteArray piece = file.read(std::min(pieceSize, mostGenealogyBytes + 1 - bytes.size()));
        if (file.error() != QFileDevice::NoError)
            return importFailure(name, file.errorString() + u'.');
        if (piece.isEmpty())
            return bytes;
        bytes += piece;
        if (!progress.goesOn(static_cast<double>(bytes.size()) / static_cast<double>(std::max(expected, bytes.size()))))
            return stoppedImport(name);
    }
    return tooLongGenealogy(name);
}

Outcome<GenealogyFile> fromArchive(std::unique_ptr<Gedzip> archive, const Progress& progress)
{
    auto bytes = archive->genealogy(progress);
    if (bytes.failed())
        return bytes.failure();
    return GenealogyFile{std::move(bytes.value()), std::move(archive)};
}

} // namespace

Failure tooLongGenealogy(const QString& name)
{
    return importFailure(name, ImportTexts::tr("it has more than 512 MB."));
}

Outcome<GenealogyKind> recognise(const QByteArray& beginning, const QString& name)
{
    const QByteArray looked = beginning.left(beginningSize);
    if (looked.isEmpty() || looked == "\xEF\xBB\xBF")
        return importFailure(name, ImportTexts::tr("the file is empty."));
    if (isZip(looked))
        return GenealogyKind::Gedzip;
    if (!isSurelyElse(looked) && looksLikeGedcom(looked))
        return GenealogyKind::Gedcom;
    return importFailure(name, whatElse(looked));
}

Outcome<GenealogyFile> readGenealogy(QByteArray bytes, const QString& name, const Progress& progress)
{
    const auto kind = recognise(bytes, name);
    if (kind.failed())
        return kind.failure();
    if (kind.value() == GenealogyKind::Gedcom)
        return GenealogyFile{std::move(bytes), std::make_unique<NoMediaFiles>()};
    auto archive = Gedzip::openBytes(std::move(bytes), name);
    return archive.failed() ? archive.failure() : fromArchive(std::move(archive.value()), progress);
}

Outcome<GenealogyFile> readGenealogy(const QString& path, const QString& name, const Progress& progress)
{
    QFile file(path);
    // Opening a pipe would wait for its other end.
    if (QFileInfo(path).exists() && !QFileInfo(path).isFile())
        return importFailure(name, ImportTexts::tr("it is not a file."));
    if (!file.open(QIODevice::ReadOnly))
        return importFailure(name, file.errorString() + u'.');
    QByteArray beginning = file.read(beginningSize);
    if (file.error() != QFileDevice::NoError)
        return importFailure(name, file.errorString() + u'.');
    const auto kind = recognise(beginning, name);
    if (kind.failed())
        return kind.failure();
    if (kind.value() == GenealogyKind::Gedzip) {
        auto archive = Gedzip::open(path, name);
        return archive.failed() ? archive.failure() : fromArchive(std::move(archive.value()), progress);
    }
    auto bytes = readOn(file, std::move(beginning), name, progress);
    if (bytes.failed())
        return bytes.failure();
    return GenealogyFile{std::move(bytes.value()), std::make_unique<FolderMediaFiles>(QFileInfo(path).absolutePath())};
}

bool isGenealogy(const QString& path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return false;
    return !recognise(file.read(beginningSize), {}).failed();
}

} // namespace lineara
