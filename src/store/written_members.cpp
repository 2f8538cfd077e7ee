#include "written_members.h"

#include "numbers.h"
#include "text_decoding.h"
#include "xml_fragment.h"

#include <charconv>

namespace lineara::store {

bool isWholeContent(std::string_view rest, std::size_t end)
{
    constexpr std::string_view endTag("\0/attribute>", 12);
    return end > 0 && rest.substr(end).starts_with(endTag);
}

bool takeWrittenText(std::optional<QString>& value, std::string_view rest)
{
    std::size_t end = 0;
    auto text = decodeSimpleText(rest, end);
    if (!text || !isWholeContent(rest, end))
        return false;
    value = std::move(text);
    return true;
}

bool takeWrittenUtf8(QByteArray& value, std::string_view rest)
{
    const auto end = std::min(rest.find('\0'), rest.size());
    if (!isSimpleText(rest.substr(0, end)) || !isWholeContent(rest, end))
        return false;
    value = QByteArray(rest.data(), static_cast<qsizetype>(end));
    return true;
}

bool takeWrittenNumber(std::optional<std::int32_t>& value, std::string_view rest)
{
    std::int32_t number = 0;
    const auto [end, error] = std::from_chars(rest.data(), rest.data() + rest.size(), number);
    if (error != std::errc() || !isWholeContent(rest, static_cast<std::size_t>(end - rest.data())))
        return false;
    value = number;
    return true;
}

bool takeWrittenReference(Number& number, std::string_view rest)
{
    const auto reference = parsedValue(rest, "/>");
    const auto parsed = reference ? parseObjectId(*reference) : std::nullopt;
    number = parsed.value_or(number);
    return parsed.has_value();
}

} // namespace lineara::store
