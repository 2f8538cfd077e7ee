#include "gedzip.h"

#include "genealogy_file.h"
#include "import_failure.h"
#include "import_texts.h"

#include <zip.h>

#include <QFile>

#include <algorithm>
#include <optional>
#include <vector>

namespace lineara {
namespace {

constexpr zip_flags_t asWritten = ZIP_FL_ENC_GUESS;

struct EntryCloser
{
    void operator()(zip_file_t* entry) const { zip_fclose(entry); }
};
using Entry = std::unique_ptr<zip_file_t, EntryCloser>;

Failure brokenArchive(const QString& name)
{
    return importFailure(name, ImportTexts::tr("it is a ZIP archive that can't be read."));
}

zip_uint64_t countIn(zip_t* archive)
{
    return static_cast<zip_uint64_t>(std::max<zip_int64_t>(0, zip_get_num_entries(archive, 0)));
}

QString nameIn(zip_t* archive, zip_uint64_t index)
{
    return QString::fromUtf8(zip_get_name(archive, index, asWritten));
}

/// Positions of what may be the genealogy among the files of the archive. One that is called as it should be is the
/// only one.
std::vector<zip_uint64_t> genealogiesIn(zip_t* archive)
{
    const zip_int64_t exact = zip_name_locate(archive, "gedcom.ged", asWritten | ZIP_FL_NOCASE);
    if (exact >= 0)
        return {static_cast<zip_uint64_t>(exact)};
    std::vector<zip_uint64_t> found;
    for (zip_uint64_t index = 0; index < countIn(archive); ++index) {
        if (nameIn(archive, index).endsWith(QStringLiteral(".ged"), Qt::CaseInsensitive))
            found.push_back(index);
    }
    return found;
}

/// The next piece of an entry; no value if it is broken.
std::optional<QByteArray> pieceOf(zip_file_t* entry, qsizetype size)
{
    QByteArray piece(size, Qt::Uninitialized);
    const zip_int64_t read = zip_fread(entry, piece.data(), static_cast<zip_uint64_t>(size));
    if (read < 0)
        return std::nullopt;
    piece.truncate(static_cast<qsizetype>(read));
    return piece;
}

} // namespace

Outcome<std::unique_ptr<Gedzip>> Gedzip::open(const QString& path, const QString& name)
{
    std::unique_ptr<Gedzip> archive(new Gedzip({}, name));
    archive->archive_ = zip_open(QFile::encodeName(path).constData(), ZIP_RDONLY, nullptr);
    if (!archive->archive_)
        return brokenArchive(name);
    return archive;
}

Outcome<std::unique_ptr<Gedzip>> Gedzip::openBytes(QByteArray bytes, const QString& name)
{
    std::unique_ptr<Gedzip> archive(new Gedzip(std::move(bytes), name));
    zip_source_t* const source = zip_source_buffer_create(
        archive->bytes_.constData(), static_cast<zip_uint64_t>(archive->bytes_.size()), 0, nullptr);
    if (!source)
        return brokenArchive(name);
    archive->archive_ = zip_open_from_source(source, ZIP_RDONLY, nullptr);
    if (!archive->archive_) {
        zip_source_free(source);
        return brokenArchive(name);
    }
    return archive;
}

Gedzip::~Gedzip()
{
    if (archive_)
        zip_discard(archive_);
}

Outcome<QByteArray> Gedzip::genealogy(const Progress& progress) const
{
    constexpr qsizetype pieceSize = 1024 * 1024;
    const auto found = genealogiesIn(archive_);
    if (found.empty())
        return importFailure(name_, ImportTexts::tr("this archive holds no family: there is no gedcom.ged in it."));
    if (found.size() > 1)
        return importFailure(name_, ImportTexts::tr("this archive holds several GEDCOM files, none of which is called "
                                                    "gedcom.ged; unpack it and import them one by one."));
    const Entry entry(zip_fopen_index(archive_, found.front(), 0));
    if (!entry)
        return brokenArchive(name_);
    QByteArray bytes;
    for (;;) {
        const auto piece = pieceOf(entry.get(), pieceSize);
        if (!piece)
            return brokenArchive(name_);
        if (piece->isEmpty())
            return bytes;
        bytes += *piece;
        if (bytes.size() == piece->size()) {
            const auto kind = recognise(bytes, name_);
            if (kind.failed() || kind.value() != GenealogyKind::Gedcom)
                return kind.failed() ? kind.failure() : notGedcom(name_);
        }
        if (bytes.size() > mostGenealogyBytes)
            return tooLongGenealogy(name_);
        const auto done = static_cast<double>(bytes.size());
        if (!progress.goesOn(done / (done + pieceSize)))
            return stoppedImport(name_);
    }
}

/// The file of that name, or else the first one that other systems would take for it.
std::optional<std::uint64_t> Gedzip::find(const QString& place) const
{
    const zip_int64_t index = zip_name_locate(archive_, place.toUtf8().constData(), asWritten);
    if (index >= 0)
        return static_cast<std::uint64_t>(index);
    if (!likenesses_) {
        likenesses_.emplace();
        for (zip_uint64_t at = countIn(archive_); at-- > 0;)
            likenesses_->insert(likenessOf(nameIn(archive_, at)), at);
    }
    const auto found = likenesses_->constFind(likenessOf(place));
    return found == likenesses_->constEnd() ? std::nullopt : std::optional(*found);
}

Outcome<MediaFile> Gedzip::read(const QString& name) const
{
    for (const QString& place : placesInArchive(name)) {
        const auto index = find(place);
        if (!index)
            continue;
        const Entry entry(zip_fopen_index(archive_, *index, 0));
        if (!entry)
            break;
        MediaFile file{{}, nameIn(archive_, *index)};
        while (file.bytes.size() <= mostBytes) {
            const auto piece = pieceOf(entry.get(), qsizetype{256} * 1024);
            if (!piece)
                return Failure{ImportTexts::tr("the archive is broken there")};
            if (piece->isEmpty())
                return file;
            file.bytes += *piece;
        }
        return mediaTooLarge();
    }
    return mediaNotThere();
}

QStringList Gedzip::ownFiles() const
{
    QStringList files;
    const auto genealogies = genealogiesIn(archive_);
    for (zip_uint64_t index = 0; index < countIn(archive_); ++index) {
        const QString name = nameIn(archive_, index);
        const bool isGenealogy = genealogies.size() == 1 && genealogies.front() == index;
        if (!isGenealogy && !name.endsWith(u'/'))
            files << name;
    }
    return files;
}

} // namespace lineara
