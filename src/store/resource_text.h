#pragma once

#include "platform/outcome.h"

#include <QByteArray>

#include <pugixml.hpp>

#include <string_view>

/// Reading the small XML texts that describe models and mappings.
namespace lineara::store {

/// Parses the text into the document; the failure says where it is not well-formed, or that its root is called
/// otherwise.
Outcome<Done> parseResource(const QByteArray& text, const char* rootName, pugi::xml_document& document);

/// A version number in an attribute of the element; 0 if there is none.
int versionIn(pugi::xml_node element, const char* attribute);

/// A failure about an element, which is named by its "name" attribute.
Failure resourceFailure(pugi::xml_node element, const QString& reason);

} // namespace lineara::store
