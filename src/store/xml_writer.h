#pragma once

#include "store/atomic_file.h"

#include <QStringView>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

namespace lineara::store {

/// How far the objects of a family file and their members stand from the edge.
inline constexpr std::string_view objectIndent = "    ";
inline constexpr std::string_view memberIndent = "        ";

/// Collects XML text in a buffer and hands it to the sink in large pieces.
class XmlWriter
{
public:
    explicit XmlWriter(ByteSink sink);

    /// Bytes that are markup already.
    void raw(std::string_view bytes)
    {
        if (bytes.size() <= capacity - used_)
            copy(bytes);
        else
            rawAcrossBuffers(bytes);
    }
    void number(std::int64_t value);
    /// Character data, escaped so that every XML reader gives it back unchanged. What no XML file can hold (control
    /// characters, halves of surrogate pairs) becomes U+FFFD.
    void text(QStringView text);
    /// The same for bytes that writableUtf8() has passed.
    void utf8(std::string_view text);

    /// Hands over what is left; false if the sink refused anything.
    bool finish();

private:
    static constexpr std::size_t capacity = 256 * 1024;

    void copy(std::string_view bytes);
    void rawAcrossBuffers(std::string_view bytes);
    void ensure(std::size_t bytes);
    void flush();
    void escape(char16_t unit);
    void appendUtf8(char32_t character);

    ByteSink sink_;
    std::unique_ptr<char[]> buffer_ = std::make_unique_for_overwrite<char[]>(capacity);
    std::size_t used_ = 0;
    bool refused_ = false;
};

} // namespace lineara::store
