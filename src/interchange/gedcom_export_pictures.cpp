#include "gedcom_export_pictures.h"

#include "import_texts.h"

#include <zip.h>

#include <algorithm>
#include <array>
#include <memory>
#include <vector>

namespace lineara {
namespace {

struct PictureKind
{
    QByteArrayView start;
    const char* ending = nullptr;
    const char* mediaType = nullptr;
};

constexpr std::array<PictureKind, 7> pictureKinds = {{{"\x89PNG", "png", "image/png"},
                                                      {"\xFF\xD8\xFF", "jpg", "image/jpeg"},
                                                      {"GIF8", "gif", "image/gif"},
                                                      {"BM", "bmp", "image/bmp"},
                                                      {"II*", "tif", "image/tiff"},
                                                      {"MM", "tif", "image/tiff"},
                                                      {"RIFF", "webp", "image/webp"}}};

const PictureKind& kindOf(const QByteArray& bytes)
{
    static constexpr PictureKind unknown{"", "bin", "application/octet-stream"};
    const auto known =
        std::ranges::find_if(pictureKinds, [&](const auto& kind) { return bytes.startsWith(kind.start); });
    return known == pictureKinds.end() ? unknown : *known;
}

/// Names that lead out of an archive, or into the web, name nothing in it.
bool isWithinArchive(const std::string& name)
{
    const bool isPlain = name.find_first_of(":\\%?#*\n\r") == std::string::npos;
    return !name.empty() && isPlain && name.front() != '/' && name.back() != '/' && name.front() != '.' &&
           name.find("/.") == std::string::npos && name != "gedcom.ged";
}

class PictureCollector
{
public:
    PictureCollector(const FamilyContent& family, const KeptRecords& kept, GedcomChanges& changes)
        : family_(family), kept_(kept), changes_(changes)
    {}

    ArchiveFiles collect()
    {
        const ExportGraph& graph = changes_.graph();
        for (const auto& pic : family_.pics()) {
            const auto person = pic.person && pic.data && !pic.data->isEmpty() ? graph.of(*pic.person) : std::nullopt;
            if (person)
                add(*person, pic.id, *pic.data);
        }
        return std::move(files_);
    }

private:
    void add(ExportPerson person, RecordId id, const QByteArray& bytes)
    {
        const auto names = namesFor(person);
        if (!names.empty() && isWithinArchive(names.front())) {
            const auto [file, isNew] = files_.try_emplace(names.front(), bytes);
            if (isNew || file->second == bytes)
                return;
        }
        const PictureKind& kind = kindOf(bytes);
        std::string name("pictures/");
        name += numberedXref('p', id.number);
        name += '.';
        name += kind.ending;
        while (!files_.try_emplace(name, bytes).second)
            name.insert(name.begin() + 9, 'x');
        const std::string xref = changes_.takeXref(numberedXref('O', id.number));
        changes_.addRecord(gedcomRecord(xref, "OBJE") +
                           gedcomLines(1, "FILE", QString::fromStdString(name), GedcomDialect::Seven) +
                           gedcomLines(2, "FORM", QString::fromLatin1(kind.mediaType), GedcomDialect::Seven));
        changes_.addToPerson(person, gedcomPointer(1, "OBJE", xref) + (names.empty() ? "" : "2 _PRIM Y\n"));
    }

    /// The files that the person's record names, in order.
    std::vector<std::string> namesFor(ExportPerson person) const
    {
        std::vector<std::string> names;
        const auto at = kept_.recordOf(person);
        if (!at)
            return names;
        const EditedRecord record = kept_.edited(*at);
        for (const auto line : record.children(0)) {
            if (record[line].tag != "OBJE" && record[line].tag != "_PHOTO")
                continue;
            const auto object = record[line].isPointer ? kept_.target(record[line].value) : std::nullopt;
            if (object)
                addNames(kept_.edited(*object), 0, names);
            else
                addNames(record, line, names);
        }
        return names;
    }

    static void addNames(const EditedRecord& record, EditedRecord::Line object, std::vector<std::string>& names)
    {
        for (const auto file : record.children(object, "FILE"))
            names.push_back(record.text(file).trimmed().toStdString());
    }

    const FamilyContent& family_;
    const KeptRecords& kept_;
    GedcomChanges& changes_;
    ArchiveFiles files_;
};

struct ArchiveDiscard
{
    void operator()(zip_t* archive) const { zip_discard(archive); }
};
struct SourceFree
{
    void operator()(zip_source_t* source) const { zip_source_free(source); }
};
using Archive = std::unique_ptr<zip_t, ArchiveDiscard>;
using Source = std::unique_ptr<zip_source_t, SourceFree>;

bool addFile(zip_t* archive, const std::string& name, const QByteArray& bytes, bool isText)
{
    // The first day that archives know: any other would make the bytes depend on the clock.
    constexpr zip_uint16_t firstDay = (1 << 5) | 1;
    zip_source_t* const source =
        zip_source_buffer(archive, bytes.constData(), static_cast<zip_uint64_t>(bytes.size()), 0);
    if (!source)
        return false;
    const zip_int64_t index = zip_file_add(archive, name.c_str(), source, ZIP_FL_ENC_UTF_8);
    if (index < 0) {
        zip_source_free(source);
        return false;
    }
    const auto place = static_cast<zip_uint64_t>(index);
    return zip_set_file_compression(archive, place, isText ? ZIP_CM_DEFLATE : ZIP_CM_STORE, 0) == 0 &&
           zip_file_set_dostime(archive, place, 0, firstDay, 0) == 0;
}

QByteArray bytesOf(zip_source_t* source)
{
    zip_stat_t stat;
    zip_stat_init(&stat);
    if (zip_source_stat(source, &stat) != 0 || zip_source_open(source) != 0)
        return {};
    QByteArray bytes(static_cast<qsizetype>(stat.size), Qt::Uninitialized);
    const zip_int64_t read = zip_source_read(source, bytes.data(), stat.size);
    zip_source_close(source);
    return read == bytes.size() ? bytes : QByteArray();
}

} // namespace

ArchiveFiles exportPictures(const FamilyContent& family, const KeptRecords& kept, GedcomChanges& changes)
{
    return PictureCollector(family, kept, changes).collect();
}

Outcome<QByteArray> gedzipOf(const QByteArray& genealogy, const ArchiveFiles& files)
{
    const Failure failure{ImportTexts::tr("The archive can't be made: there is not enough memory.")};
    const Source source(zip_source_buffer_create(nullptr, 0, 0, nullptr));
    if (!source)
        return failure;
    Archive archive(zip_open_from_source(source.get(), ZIP_TRUNCATE, nullptr));
    if (!archive)
        return failure;
    // One hold is the archive's, which it gives up when it is closed.
    zip_source_keep(source.get());
    bool isAdded = addFile(archive.get(), "gedcom.ged", genealogy, true);
    for (const auto& [name, bytes] : files)
        isAdded = isAdded && addFile(archive.get(), name, bytes, false);
    if (!isAdded || zip_close(archive.get()) != 0)
        return failure;
    static_cast<void>(archive.release());
    QByteArray bytes = bytesOf(source.get());
    return bytes.isEmpty() ? Outcome<QByteArray>(failure) : Outcome<QByteArray>(std::move(bytes));
}

} // namespace lineara
