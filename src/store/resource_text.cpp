#include "resource_text.h"

namespace lineara::store {

Outcome<Done> parseResource(const QByteArray& text, const char* rootName, pugi::xml_document& document)
{
    const auto result = document.load_buffer(text.constData(), static_cast<std::size_t>(text.size()));
    if (!result)
        return Failure{u"byte %1: %2"_qs.arg(result.offset).arg(QString::fromLatin1(result.description()))};
    if (std::string_view(document.document_element().name()) != rootName)
        return Failure{u"its root element is not “%1”."_qs.arg(QString::fromLatin1(rootName))};
    return Done{};
}

int versionIn(pugi::xml_node element, const char* attribute)
{
    return element.attribute(attribute).as_int();
}

Failure resourceFailure(pugi::xml_node element, const QString& reason)
{
    return Failure{u"“%1” “%2”: %3"_qs.arg(QString::fromUtf8(element.name()),
                                           QString::fromUtf8(element.attribute("name").value()), reason)};
}

} // namespace lineara::store
