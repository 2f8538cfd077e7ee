#pragma once

#include "platform/outcome.h"

#include <QByteArray>

#include <pugixml.hpp>

#include <cstddef>
#include <memory>
#include <string_view>

namespace lineara::store {

/// How a family file is parsed. References and line ends are left as they stand, so that the reader can tell which
/// of them mean nothing; the text of an element is its value, which saves a node per attribute.
inline constexpr unsigned parseFlags = pugi::parse_cdata | pugi::parse_comments | pugi::parse_pi | pugi::parse_doctype |
                                       pugi::parse_declaration | pugi::parse_ws_pcdata_single |
                                       pugi::parse_embed_pcdata;

/// The text of a file as a tree, together with the untouched text, which tells places and gives back unknown content.
/// Failures carry the place and the reason, without the file's name.
class XmlSource
{
public:
    /// Takes UTF-8 text with one root element and no document type declaration.
    static Outcome<XmlSource> parse(QByteArray bytes);

    pugi::xml_node root() const { return document_->document_element(); }

    /// Whether comments or processing instructions stand outside the root element.
    bool hasContentOutsideRoot() const;

    /// The line in the file where the node starts, counted from 1. The node must be an element, a comment, a
    /// processing instruction or character data.
    qsizetype line(pugi::xml_node node) const;

    /// The node as it stands in the file, from '<' to '>'. Not for character data.
    QByteArray verbatim(pugi::xml_node node) const;

    /// What stands between the start tag and the end tag of the element.
    std::string_view content(pugi::xml_node element) const;

private:
    explicit XmlSource(QByteArray bytes) : original_(std::move(bytes)), parsed_(original_) {}

    Outcome<Done> build();
    Outcome<Done> checkTopLevel() const;
    std::size_t start(pugi::xml_node node) const;
    std::string_view text() const;

    QByteArray original_;
    QByteArray parsed_; ///< a copy that the tree points into and has written zeros into
    std::unique_ptr<pugi::xml_document> document_ = std::make_unique<pugi::xml_document>();
};

} // namespace lineara::store
