#include "deflater.h"

#include <QtGlobal>

#include <array>
#include <utility>

namespace lineara {

namespace {

const Bytef* asInput(std::string_view bytes)
{
    return reinterpret_cast<const Bytef*>(bytes.data());
}

} // namespace

Deflater::Deflater()
{
    if (deflateInit(&stream_, Z_DEFAULT_COMPRESSION) != Z_OK)
        qBadAlloc();
}

Deflater::~Deflater()
{
    deflateEnd(&stream_);
}

void Deflater::run(std::string_view bytes, int flush)
{
    std::array<char, 1 << 16> room{};
    stream_.next_in = asInput(bytes);
    stream_.avail_in = static_cast<uInt>(bytes.size());
    do {
        stream_.next_out = reinterpret_cast<Bytef*>(room.data());
        stream_.avail_out = static_cast<uInt>(room.size());
        deflate(&stream_, flush);
        ready_.append(room.data(), static_cast<qsizetype>(room.size() - stream_.avail_out));
    } while (stream_.avail_out == 0);
}

QByteArray Deflater::take()
{
    return std::exchange(ready_, {});
}

QByteArray Deflater::finish()
{
    run({}, Z_FINISH);
    return take();
}

QByteArray deflated(std::string_view bytes)
{
    uLongf size = compressBound(static_cast<uLong>(bytes.size()));
    QByteArray packed(static_cast<qsizetype>(size), Qt::Uninitialized);
    compress2(reinterpret_cast<Bytef*>(packed.data()), &size, asInput(bytes), static_cast<uLong>(bytes.size()),
              Z_BEST_COMPRESSION);
    packed.truncate(static_cast<qsizetype>(size));
    return packed;
}

} // namespace lineara
