#include "store/store_metadata.h"

#include "field_names.h"
#include "file_bytes.h"
#include "info_parts.h"
#include "store_texts.h"
#include "xml_file.h"

namespace lineara {

namespace {

using store::InfoParts;

/// The file as if it ended after its "databaseInfo", once per place where that may be: the words may stand in a
/// comment as well.
class BeginningOfFile
{
public:
    explicit BeginningOfFile(const QByteArray& bytes) : bytes_(bytes) {}

    /// No value if there are no more.
    std::optional<QByteArray> next()
    {
        // Each is parsed from the start of the file, so a hostile file must not offer too many.
        constexpr int mostPlaces = 16;
        const auto endTag = QByteArray("</") + store::infoName;
        const auto found = bytes_.indexOf(endTag, from_);
        const auto close = found < 0 ? -1 : bytes_.indexOf('>', found);
        if (close < 0 || ++places_ > mostPlaces)
            return std::nullopt;
        from_ = close + 1;
        return bytes_.left(from_) + "</" + store::rootName + '>';
    }

private:
    const QByteArray& bytes_;
    qsizetype from_ = 0;
    int places_ = 0;
};

Outcome<StoreMetadata> metadataIn(const QByteArray& text)
{
    const std::string_view view(text.constData(), static_cast<std::size_t>(text.size()));
    auto file = store::XmlFile::open(view, store::rootName);
    if (file.failed())
        return file.failure();
    store::XmlFragment fragment(view);
    if (const auto more = file.value().next(fragment); more.failed())
        return more.failure();
    const auto info = fragment.top().find_child([](pugi::xml_node node) { return node.type() == pugi::node_element; });
    if (std::string_view(info.name()) != store::infoName)
        return Failure{StoreTexts::tr("“databaseInfo” is missing at the beginning.")};
    const auto parts = InfoParts::read(fragment, info, [](pugi::xml_node, std::uint32_t) {});
    return parts.failed() ? Outcome<StoreMetadata>(parts.failure()) : parts.value().metadata();
}

Outcome<StoreMetadata> readMetadata(const QString& path)
{
    constexpr qsizetype beginning = 1024 * 1024;
    const auto bytes = store::readTextFile(path, {}, beginning);
    if (bytes.failed())
        return bytes.failure();
    Outcome<StoreMetadata> metadata = Failure{StoreTexts::tr("“databaseInfo” is missing at the beginning.")};
    BeginningOfFile beginnings(bytes.value());
    for (auto text = beginnings.next(); text && metadata.failed(); text = beginnings.next())
        metadata = metadataIn(*text);
    return metadata;
}

} // namespace

Outcome<StoreMetadata> metadataForPersistentStore(const QString& path)
{
    auto metadata = readMetadata(path);
    if (metadata.failed())
        return Failure{StoreTexts::tr("“%1” can't be opened: %2").arg(path, metadata.failure().message)};
    return metadata;
}

} // namespace lineara
