#include "picture_kinds.h"

#include <algorithm>
#include <array>

namespace lineara {

const PictureKind& kindOf(const QByteArray& bytes)
{
    using Text = QLatin1StringView;
    static constexpr PictureKind unknown{"", Text("bin"), Text("application/octet-stream")};
    static constexpr std::array<PictureKind, 7> kinds = {{{"\x89PNG", Text("png"), Text("image/png")},
                                                          {"\xFF\xD8\xFF", Text("jpg"), Text("image/jpeg")},
                                                          {"GIF8", Text("gif"), Text("image/gif")},
                                                          {"BM", Text("bmp"), Text("image/bmp")},
                                                          {"II*", Text("tif"), Text("image/tiff")},
                                                          {"MM", Text("tif"), Text("image/tiff")},
                                                          {"RIFF", Text("webp"), Text("image/webp")}}};
    const auto known = std::ranges::find_if(kinds, [&](const auto& kind) { return bytes.startsWith(kind.start); });
    return known == kinds.end() ? unknown : *known;
}

} // namespace lineara
