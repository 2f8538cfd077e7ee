#include "extended_attributes.h"

#include <string>
#include <string_view>
#include <vector>

#include <sys/xattr.h>

namespace lineara::store {

namespace {

/// The names, each ended by a zero; empty if there are none or the file system knows of none.
std::string namesOf(const char* path)
{
    const auto size = ::listxattr(path, nullptr, 0);
    std::string names(size > 0 ? static_cast<std::size_t>(size) : 0, '\0');
    const auto listed = names.empty() ? 0 : ::listxattr(path, names.data(), names.size());
    names.resize(listed > 0 ? static_cast<std::size_t>(listed) : 0);
    return names;
}

void copyOne(const char* from, int to, const char* name)
{
    const auto size = ::getxattr(from, name, nullptr, 0);
    if (size < 0)
        return;
    std::vector<char> value(static_cast<std::size_t>(size));
    const auto got = ::getxattr(from, name, value.data(), value.size());
    if (got >= 0)
        static_cast<void>(::fsetxattr(to, name, value.data(), static_cast<std::size_t>(got), 0));
}

} // namespace

void copyExtendedAttributes(const char* from, int to)
{
    const auto names = namesOf(from);
    for (std::size_t at = 0; at < names.size(); at += std::string_view(names.data() + at).size() + 1)
        copyOne(from, to, names.data() + at);
}

} // namespace lineara::store
