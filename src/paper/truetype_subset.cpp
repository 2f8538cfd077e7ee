#include "truetype_subset.h"

#include <QRawFont>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace lineara {

namespace {

constexpr qsizetype headIsLong = 50; // place of the flag for long offsets in "head"
constexpr qsizetype headSum = 8;     // place of the sum over the whole file in "head"
constexpr qsizetype headLength = 54;
constexpr qsizetype countPlace = 4;    // of the number of glyphs in "maxp"
constexpr qsizetype metricsPlace = 34; // of the number of full metrics in "hhea"
constexpr int glyphHeader = 10;

template<class Number>
Number readAt(const QByteArray& table, qsizetype at)
{
    return at >= 0 && at + qsizetype{sizeof(Number)} <= table.size() ? qFromBigEndian<Number>(table.data() + at)
                                                                     : Number{};
}

template<class Number>
void append(QByteArray& bytes, Number number)
{
    std::array<char, sizeof(Number)> big{};
    qToBigEndian(number, big.data());
    bytes.append(big.data(), big.size());
}

class Outlines
{
public:
    explicit Outlines(const QRawFont& font)
        : head_(font.fontTable("head")), places_(font.fontTable("loca")), outlines_(font.fontTable("glyf")),
          count_(readAt<quint16>(font.fontTable("maxp"), countPlace)), isLong_(readAt<quint16>(head_, headIsLong) != 0)
    {}

    bool areSound() const
    {
        const qsizetype width = isLong_ ? 4 : 2;
        return head_.size() >= headLength && !outlines_.isEmpty() && places_.size() >= (count_ + 1) * width;
    }
    std::uint32_t count() const { return count_; }
    const QByteArray& head() const { return head_; }

    QByteArrayView outline(std::uint32_t glyph) const
    {
        const qsizetype from = place(glyph);
        const qsizetype to = place(glyph + 1);
        return from < to && to <= outlines_.size() ? QByteArrayView(outlines_).sliced(from, to - from)
                                                   : QByteArrayView();
    }

    /// The glyphs that one is put together from.
    std::vector<std::uint32_t> partsOf(std::uint32_t glyph) const
    {
        enum Flags : quint16
        {
            WordArguments = 0x1,
            OneScale = 0x8,
            MoreParts = 0x20,
            TwoScales = 0x40,
            Matrix = 0x80
        };
        std::vector<std::uint32_t> parts;
        const QByteArray bytes = outline(glyph).toByteArray();
        if (readAt<qint16>(bytes, 0) >= 0)
            return parts;
        for (qsizetype at = glyphHeader; at + 4 <= bytes.size();) {
            const auto flags = readAt<quint16>(bytes, at);
            parts.push_back(readAt<quint16>(bytes, at + 2));
            at += 4 + ((flags & WordArguments) ? 4 : 2);
            at += (flags & OneScale) ? 2 : (flags & TwoScales) ? 4 : (flags & Matrix) ? 8 : 0;
            if (!(flags & MoreParts))
                break;
        }
        return parts;
    }

private:
    qsizetype place(std::uint32_t glyph) const
    {
        return isLong_ ? readAt<quint32>(places_, qsizetype{glyph} * 4)
                       : qsizetype{readAt<quint16>(places_, qsizetype{glyph} * 2)} * 2;
    }

    QByteArray head_;
    QByteArray places_;
    QByteArray outlines_;
    std::uint32_t count_;
    bool isLong_;
};

std::set<std::uint32_t> withParts(const Outlines& outlines, const std::set<std::uint32_t>& glyphs)
{
    std::set<std::uint32_t> all{0}; // what stands for glyphs that are missing
    std::vector<std::uint32_t> open(glyphs.begin(), glyphs.end());
    while (!open.empty()) {
        const std::uint32_t glyph = open.back();
        open.pop_back();
        if (glyph >= outlines.count() || !all.insert(glyph).second)
            continue;
        const auto parts = outlines.partsOf(glyph);
        open.insert(open.end(), parts.begin(), parts.end());
    }
    return all;
}

/// Widths of glyphs that are left out are none, so that they take no room when packed.
QByteArray metricsOf(const QRawFont& font, const std::set<std::uint32_t>& glyphs)
{
    constexpr qsizetype entry = 4;
    QByteArray metrics = font.fontTable("hmtx");
    const qsizetype full = readAt<quint16>(font.fontTable("hhea"), metricsPlace);
    // The last full one is the width of all that follow.
    for (qsizetype glyph = 0; glyph + 1 < full && (glyph + 1) * entry <= metrics.size(); ++glyph) {
        if (!glyphs.contains(static_cast<std::uint32_t>(glyph)))
            std::fill_n(metrics.begin() + glyph * entry, entry, '\0');
    }
    return metrics;
}

quint32 sumOf(const QByteArray& table)
{
    quint32 sum = 0;
    for (qsizetype at = 0; at + 4 <= table.size(); at += 4)
        sum += readAt<quint32>(table, at);
    return sum;
}

using Table = std::pair<QByteArray, QByteArray>; // name and content

QByteArray fileOf(const std::vector<Table>& tables)
{
    constexpr qsizetype entry = 16;
    QByteArray file;
    append<quint32>(file, 0x00010000);
    const auto count = static_cast<quint16>(tables.size());
    quint16 power = 1;
    quint16 exponent = 0;
    for (; power * 2 <= count; power = static_cast<quint16>(power * 2))
        ++exponent;
    append(file, count);
    append(file, static_cast<quint16>(power * entry));
    append(file, exponent);
    append(file, static_cast<quint16>((count - power) * entry));
    qsizetype place = file.size() + entry * count;
    qsizetype head = 0;
    QByteArray contents;
    for (const auto& [name, table] : tables) {
        const qsizetype length = table.size();
        const QByteArray content = table + QByteArray((4 - length % 4) % 4, '\0');
        head = name == "head" ? place : head;
        file += name;
        append(file, sumOf(content));
        append(file, static_cast<quint32>(place));
        append(file, static_cast<quint32>(length));
        place += content.size();
        contents += content;
    }
    file += contents;
    qToBigEndian<quint32>(0xB1B0AFBA - sumOf(file), file.data() + head + headSum);
    return file;
}

} // namespace

std::optional<QByteArray> trueTypeSubset(const QRawFont& font, const std::set<std::uint32_t>& glyphs)
{
    const Outlines outlines(font);
    if (!outlines.areSound() || !font.fontTable("fvar").isEmpty())
        return std::nullopt;
    const std::set<std::uint32_t> kept = withParts(outlines, glyphs);
    QByteArray shapes;
    QByteArray places;
    for (std::uint32_t glyph = 0; glyph < outlines.count(); ++glyph) {
        append(places, static_cast<quint32>(shapes.size()));
        if (!kept.contains(glyph))
            continue;
        shapes += outlines.outline(glyph);
        shapes.append((4 - shapes.size() % 4) % 4, '\0');
    }
    append(places, static_cast<quint32>(shapes.size()));
    QByteArray head = outlines.head();
    qToBigEndian<quint16>(1, head.data() + headIsLong);
    qToBigEndian<quint32>(0, head.data() + headSum);
    std::vector<Table> tables;
    for (const char* const name : {"cvt ", "fpgm"}) {
        if (const QByteArray table = font.fontTable(name); !table.isEmpty())
            tables.emplace_back(name, table);
    }
    tables.emplace_back("glyf", shapes);
    tables.emplace_back("head", head);
    tables.emplace_back("hhea", font.fontTable("hhea"));
    tables.emplace_back("hmtx", metricsOf(font, kept));
    tables.emplace_back("loca", places);
    tables.emplace_back("maxp", font.fontTable("maxp"));
    if (const QByteArray table = font.fontTable("prep"); !table.isEmpty())
        tables.emplace_back("prep", table);
    return fileOf(tables);
}

} // namespace lineara
