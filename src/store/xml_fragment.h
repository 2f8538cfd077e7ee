#pragma once

#include "platform/outcome.h"

#include <QByteArray>

#include <pugixml.hpp>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace lineara::store {

/// How a family file is parsed. References and line ends are left as they stand, so that the reader can tell which
/// of them mean nothing; the text of an element is its value, which saves a node per attribute.
inline constexpr unsigned parseFlags = pugi::parse_fragment | pugi::parse_cdata | pugi::parse_comments |
                                       pugi::parse_pi | pugi::parse_doctype | pugi::parse_declaration |
                                       pugi::parse_ws_pcdata_single | pugi::parse_embed_pcdata;

inline bool isElement(pugi::xml_node node, std::string_view name)
{
    return node.type() == pugi::node_element && node.name() == name;
}

/// The line of a position in a text, counted from 1.
qsizetype lineAt(std::string_view text, std::size_t position);

/// A start tag as parsing in place leaves it behind: with a zero after the element's name and after the name and the
/// value of each attribute. `written` is the tag from the element's name on.
std::string parsedTag(std::string_view written);

/// The value of an attribute in parsed text that begins with it, if these characters follow its closing quote.
std::optional<std::string_view> parsedValue(std::string_view text, std::string_view following);

/// A stretch of a file as a tree, together with the untouched text, which tells places and gives back unknown content.
/// The tree is small and used again for the next stretch, so that it stays near the processor.
class XmlFragment
{
public:
    /// `file` must outlive the fragment.
    explicit XmlFragment(std::string_view file) : file_(file) {}

    /// Parses the stretch from `begin` to `end` in place of the former one; true if it is well-formed by itself.
    bool parse(std::size_t begin, std::size_t end);

    /// Why the last stretch could not be parsed: the place and the reason.
    Failure failure() const;

    /// What the fragment holds are the children of this node.
    pugi::xml_node top() const { return document_; }

    /// The line in the file where the node starts. The node must be an element, a comment, a processing instruction
    /// or character data.
    qsizetype line(pugi::xml_node node) const;

    /// The node as it stands in the file, from '<' to '>'. Not for character data.
    QByteArray verbatim(pugi::xml_node node) const;

    /// What follows in the parsed text if the element begins with exactly this tag (see parsedTag); no value otherwise.
    /// Recognises what the writer wrote by one comparison, where asking for each name and value would take dozens of
    /// steps.
    std::optional<std::string_view> after(std::string_view tag, pugi::xml_node element) const
    {
        // Names of nodes without one lie elsewhere and give an offset beyond the text.
        const auto text = std::string_view(parsed_.constData(), static_cast<std::size_t>(parsed_.size()));
        const auto offset =
            reinterpret_cast<std::uintptr_t>(element.name()) - reinterpret_cast<std::uintptr_t>(text.data());
        if (offset >= text.size() || !text.substr(offset).starts_with(tag))
            return std::nullopt;
        return text.substr(offset + tag.size());
    }

    /// What stands between the start tag and the end tag of the element.
    std::string_view content(pugi::xml_node element) const;

private:
    bool isText();
    std::size_t start(pugi::xml_node node) const;

    std::string_view file_;
    std::size_t begin_ = 0;
    QByteArray parsed_; ///< a copy of the stretch, which the tree points into and has written zeros into
    pugi::xml_document document_;
    Failure failure_;
};

} // namespace lineara::store
