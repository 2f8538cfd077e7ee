#include "gedcom_export_xrefs.h"

namespace lineara {

std::string ExportXrefs::take(const std::string& wish)
{
    if (!isRead_)
        readUsed();
    isRead_ = true;
    // What is between two @ signs may have 20 characters.
    constexpr std::size_t longest = 20;
    std::string xref = wish.size() <= longest ? wish : numberedXref(wish.front(), 1);
    for (std::uint64_t number = 1; !used_.insert(xref).second; ++number)
        xref = numberedXref(wish.front(), number);
    return xref;
}

/// Everything between two @ signs of a line: pointers that lead nowhere must not come to lead to a new record.
void ExportXrefs::readUsed()
{
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

} // namespace lineara
