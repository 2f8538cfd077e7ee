#pragma once

#include <QByteArray>

#include <string_view>

// Without it the library takes what it only reads for its own.
#define ZLIB_CONST
#include <zlib.h>

namespace lineara {

/// Compresses a stream as it comes (zlib's format), so that what it comes from need not be kept.
class Deflater
{
public:
    Deflater();
    ~Deflater();
    Deflater(const Deflater&) = delete;
    Deflater& operator=(const Deflater&) = delete;

    void add(std::string_view bytes) { run(bytes, Z_NO_FLUSH); }
    /// Compressed bytes that are ready; what is taken is forgotten here.
    QByteArray take();
    /// The rest, after which nothing can be added.
    QByteArray finish();

private:
    void run(std::string_view bytes, int flush);

    z_stream stream_{};
    QByteArray ready_;
};

/// All at once, as small as it gets.
QByteArray deflated(std::string_view bytes);

} // namespace lineara
