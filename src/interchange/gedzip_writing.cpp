#include "gedzip_writing.h"

#include "import_texts.h"

#include <zip.h>

#include <memory>

namespace lineara {
namespace {

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

/// Closing the archive is what takes time.
void listen(zip_t* archive, Progress& told)
{
    constexpr double precision = 0.01;
    const auto report = [](zip_t*, double part, void* state) { static_cast<Progress*>(state)->report(part); };
    const auto isStopped = [](zip_t*, void* state) { return static_cast<Progress*>(state)->isStopped() ? 1 : 0; };
    zip_register_progress_callback_with_state(archive, precision, report, nullptr, &told);
    zip_register_cancel_callback_with_state(archive, isStopped, nullptr, &told);
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

Outcome<QByteArray> gedzipOf(const QByteArray& genealogy, const ArchiveFiles& files, const Progress& progress)
{
    Progress told = progress;
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
    listen(archive.get(), told);
    for (const auto& [name, bytes] : files)
        isAdded = isAdded && addFile(archive.get(), name, bytes, false);
    if (!isAdded || zip_close(archive.get()) != 0)
        return failure;
    static_cast<void>(archive.release());
    QByteArray bytes = bytesOf(source.get());
    return bytes.isEmpty() ? Outcome<QByteArray>(failure) : Outcome<QByteArray>(std::move(bytes));
}

} // namespace lineara
