#include "gedcom_export_xrefs.h"

#include "gedcom_pointer.h"

#include <algorithm>

namespace lineara {

namespace {

bool isAllowedInSeven(char c)
{
    return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

std::string allowedInSeven(std::string_view xref)
{
    std::string allowed;
    for (const char c : xref) {
        const bool isLower = c >= 'a' && c <= 'z';
        const bool goesOn = (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; // within a character of UTF-8
        if (isLower)
            allowed += static_cast<char>(c - 'a' + 'A');
        else if (!goesOn)
            allowed += isAllowedInSeven(c) ? c : '_';
    }
    return allowed;
}

} // namespace

std::string ExportXrefs::take(const std::string& wish)
{
    readUsed();
    // What is between two @ signs may have 20 characters.
    constexpr std::size_t longest = 20;
    std::string xref = wish.size() <= longest ? wish : numberedXref(wish.front(), 1);
    for (std::uint64_t number = 1; !used_.insert(xref).second; ++number)
        xref = numberedXref(wish.front(), number);
    return xref;
}

std::string ExportXrefs::next(char letter)
{
    readUsed();
    std::uint64_t& last = last_[letter];
    std::string xref = numberedXref(letter, ++last);
    while (!used_.insert(xref).second)
        xref = numberedXref(letter, ++last);
    return xref;
}

/// Everything between two @ signs of a line: pointers that lead nowhere must not come to lead to a new record.
void ExportXrefs::readUsed()
{
    if (std::exchange(isRead_, true))
        return;
    for (std::size_t record = 0; record < kept_.size(); ++record) {
        const std::string_view text = kept_[record].text;
        for (auto open = text.find('@'); open != std::string_view::npos;) {
            const auto close = text.find_first_of("@\n", open + 1);
            if (close == std::string_view::npos)
                break;
            if (text[close] == '@')
                used_.emplace(text.substr(open + 1, close - open - 1));
            open = text[close] == '@' ? close : text.find('@', close);
        }
    }
}

std::string ExportXrefs::inSeven(std::string_view lines, std::string_view unreachable)
{
    std::string out;
    while (!lines.empty()) {
        const auto length = std::min(lines.find('\n'), lines.size());
        const auto raw = lines.substr(0, length);
        const auto line = raw.find('@') == std::string_view::npos ? std::nullopt : GedcomLineReader(raw).next();
        const bool isPointer = line && line->isPointer && !isContinuation(line->tag);
        auto rest = raw;
        for (const auto xref : {line ? line->xref : std::string_view(), isPointer ? line->value : std::string_view()}) {
            const bool isUnreachable = line && xref.data() == line->xref.data() && xref == unreachable;
            if (xref.empty() || (!isUnreachable && std::ranges::all_of(xref, isAllowedInSeven)))
                continue;
            const auto at = static_cast<std::size_t>(xref.data() - rest.data());
            out.append(rest.substr(0, at)).append(isUnreachable ? newInSeven(xref) : inSevenXref(xref));
            rest.remove_prefix(at + xref.size());
        }
        out.append(rest).append(1, '\n');
        lines.remove_prefix(std::min(length + 1, lines.size()));
    }
    return out;
}

const std::string& ExportXrefs::inSevenXref(std::string_view xref)
{
    const auto [found, isNew] = renamed_.try_emplace(std::string(xref));
    if (isNew)
        found->second = newInSeven(xref);
    return found->second;
}

std::string ExportXrefs::newInSeven(std::string_view xref)
{
    readUsed();
    const std::string wish = allowedInSeven(xref);
    // Names of foreign letters all become the same underscores: of thousands each goes on where the last one ended.
    std::uint64_t& last = lastOfWish_.try_emplace(wish, 1).first->second;
    std::string name = wish;
    while (name == pointsAtNobody || !used_.insert(name).second)
        name = wish + '_' + std::to_string(++last);
    return name;
}

} // namespace lineara
