#include "png_file.h"

#include <QImage>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string_view>
#include <utility>

namespace lineara {

namespace {

QByteArray bigEndian(quint32 number)
{
    std::array<char, 4> bytes{};
    qToBigEndian(number, bytes.data());
    return {bytes.data(), bytes.size()};
}

/// How far the bytes are from 0 on the whole, up or down.
std::uint64_t weightOf(std::span<const unsigned char> bytes)
{
    std::uint64_t sum = 0;
    for (std::size_t begin = 0; begin < bytes.size(); begin += 4096) {
        std::uint32_t part = 0;
        for (const unsigned char byte : bytes.subspan(begin, std::min<std::size_t>(4096, bytes.size() - begin)))
            part += static_cast<std::uint32_t>(std::abs(static_cast<signed char>(byte)));
        sum += part;
    }
    return sum;
}

} // namespace

PngFile::PngFile(QSize size, bool isTransparent)
    : bytesPerPixel_(isTransparent ? 4 : 3), above_(static_cast<std::size_t>(size.width() * bytesPerPixel_), 0),
      bytes_("\x89PNG\r\n\x1a\n")
{
    constexpr char bitsPerColour = 8;
    QByteArray header = bigEndian(static_cast<quint32>(size.width())) + bigEndian(static_cast<quint32>(size.height()));
    header.append(bitsPerColour).append(isTransparent ? 6 : 2).append(3, '\0');
    chunk("IHDR", header);
    for (std::size_t kind = 0; kind < filtered_.size(); ++kind) {
        filtered_[kind].resize(1 + size.width() * bytesPerPixel_);
        filtered_[kind][0] = static_cast<char>(kind);
    }
}

void PngFile::chunk(const char* name, const QByteArray& content)
{
    const QByteArray summed = name + content;
    const auto sum = crc32(0, reinterpret_cast<const Bytef*>(summed.data()), static_cast<uInt>(summed.size()));
    bytes_ += bigEndian(static_cast<quint32>(content.size())) + summed + bigEndian(static_cast<quint32>(sum));
}

void PngFile::add(const QImage& rows)
{
    const QImage pixels = rows.convertToFormat(bytesPerPixel_ == 4 ? QImage::Format_RGBA8888 : QImage::Format_RGB888);
    for (int y = 0; y < pixels.height(); ++y)
        addRow(pixels.constScanLine(y));
    if (const QByteArray ready = pixels_.take(); !ready.isEmpty())
        chunk("IDAT", ready);
}

// A row is told as it is, or by what it differs in from the pixels to its left or above, whichever is the least. Each
// of the three has a loop of its own, which the compiler turns into steps of many bytes.
void PngFile::addRow(const unsigned char* row)
{
    const auto length = above_.size();
    const auto step = static_cast<std::size_t>(bytesPerPixel_);
    const auto bytesOf = [this](std::size_t kind) {
        return reinterpret_cast<unsigned char*>(filtered_[kind].data()) + 1;
    };
    std::copy_n(row, length, bytesOf(0));
    std::copy_n(row, step, bytesOf(1));
    unsigned char* const beside = bytesOf(1);
    for (std::size_t at = step; at < length; ++at)
        beside[at] = static_cast<unsigned char>(row[at] - row[at - step]);
    unsigned char* const below = bytesOf(2);
    for (std::size_t at = 0; at < length; ++at)
        below[at] = static_cast<unsigned char>(row[at] - above_[at]);
    std::array<std::uint64_t, 3> sums{};
    for (std::size_t kind = 0; kind < sums.size(); ++kind)
        sums[kind] = weightOf({bytesOf(kind), length});
    const auto best = static_cast<std::size_t>(std::ranges::min_element(sums) - sums.begin());
    pixels_.add({filtered_[best].data(), static_cast<std::size_t>(filtered_[best].size())});
    std::copy_n(row, length, above_.begin());
}

QByteArray PngFile::finish()
{
    chunk("IDAT", pixels_.finish());
    chunk("IEND", {});
    return std::move(bytes_);
}

} // namespace lineara
