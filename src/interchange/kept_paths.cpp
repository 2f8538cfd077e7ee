#include "kept_paths.h"

#include "import_texts.h"

#include <algorithm>

namespace lineara {

KeptPaths::Path KeptPaths::below(Path parent, std::string_view tag)
{
    const auto known = paths_.find(KeyView{parent, tag});
    if (known != paths_.end())
        return known->second;
    if (entries_.size() > mostPaths)
        return root;
    const auto path = static_cast<Path>(entries_.size());
    const std::string& above = entries_[parent].name;
    std::string name = above.empty() ? std::string(tag) : above + '.' + std::string(tag);
    entries_.push_back({.name = std::move(name)});
    paths_.emplace(Key{parent, std::string(tag)}, path);
    return path;
}

void KeptPaths::count(Path path, std::uint32_t line)
{
    Entry& entry = entries_[path];
    entry.firstLine = entry.lines == 0 ? line : std::min(entry.firstLine, line);
    ++entry.lines;
}

std::vector<ImportReport::KeptLines> KeptPaths::list() const
{
    std::vector<ImportReport::KeptLines> list;
    for (const Entry& entry : entries_) {
        if (entry.lines > 0)
            list.push_back({entry.name.empty() ? ImportTexts::tr("other lines") : QString::fromStdString(entry.name),
                            entry.lines, entry.firstLine});
    }
    std::sort(list.begin(), list.end(), [](const auto& a, const auto& b) { return a.firstLine < b.firstLine; });
    return list;
}

} // namespace lineara
