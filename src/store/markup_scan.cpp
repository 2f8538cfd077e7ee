#include "markup_scan.h"

#include <algorithm>

namespace lineara::store {

namespace {

std::size_t after(std::string_view text, std::string_view terminator, std::size_t from)
{
    const auto found = text.find(terminator, from);
    return found == std::string_view::npos ? text.size() : found + terminator.size();
}

std::size_t tagEnd(std::string_view text, std::size_t start)
{
    for (std::size_t at = start; at < text.size();) {
        const char c = text[at];
        if (c == '>')
            return at + 1;
        at = c == '"' || c == '\'' ? after(text, std::string_view(&c, 1), at + 1) : at + 1;
    }
    return text.size();
}

} // namespace

std::size_t markupEnd(std::string_view text, std::size_t start)
{
    const auto rest = text.substr(start);
    if (rest.starts_with("<!--"))
        return after(text, "-->", start + 4);
    if (rest.starts_with("<![CDATA["))
        return after(text, "]]>", start + 9);
    if (rest.starts_with("<?"))
        return after(text, "?>", start + 2);
    return tagEnd(text, start);
}

std::size_t elementEnd(std::string_view text, std::size_t start)
{
    std::size_t depth = 0;
    for (std::size_t at = start; at < text.size();) {
        const auto end = markupEnd(text, at);
        const char second = at + 1 < text.size() ? text[at + 1] : '\0';
        if (second == '/')
            --depth;
        else if (second != '!' && second != '?' && text[end - 2] != '/')
            ++depth;
        if (depth == 0)
            return end;
        at = std::min(text.find('<', end), text.size());
    }
    return text.size();
}

} // namespace lineara::store
