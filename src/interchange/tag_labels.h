#pragma once

#include <QString>

#include <string_view>

namespace lineara {

/// What a tag is called in the user's language; the tag itself if it is not one of the standard.
QString tagLabel(std::string_view tag);

} // namespace lineara
