#include "xml_source.h"

#include "markup_scan.h"

#include <QString>
#include <QUtf8StringView>

#include <algorithm>
#include <cstring>

namespace lineara::store {

namespace {

constexpr std::string_view blanks = " \t\r\n";
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

qsizetype lineAt(std::string_view text, std::size_t offset)
{
    const auto before = text.substr(0, std::min(offset, text.size()));
    return 1 + std::count(before.begin(), before.end(), '\n');
}

/// The first byte that belongs to no valid UTF-8 sequence.
std::size_t firstInvalidByte(std::string_view text)
{
    std::size_t good = 0;
    std::size_t bad = text.size();
    // Validity of a prefix that ends between characters is monotonous, so halving finds the place.
    while (bad - good > 1) {
        auto middle = good + (bad - good) / 2;
        while (middle > good && (static_cast<unsigned char>(text[middle]) & 0xC0) == 0x80)
            --middle;
        if (middle == good)
            break;
        const bool valid = QUtf8StringView(text.data(), static_cast<qsizetype>(middle)).isValidUtf8();
        (valid ? good : bad) = middle;
    }
    return good;
}

Outcome<Done> checkBytes(std::string_view text)
{
    if (text.empty())
        return Failure{u"it is empty."_qs};
    if (text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF"))
        return Failure{u"line 1: it is not encoded in UTF-8."_qs};
    if (const void* zero = std::memchr(text.data(), '\0', text.size())) {
        const auto offset = static_cast<std::size_t>(static_cast<const char*>(zero) - text.data());
        return Failure{u"line %1: it holds zero bytes, so it is no text."_qs.arg(lineAt(text, offset))};
    }
    const auto mark = text.starts_with(byteOrderMark) ? byteOrderMark.size() : 0;
    const auto first = text.find_first_not_of(blanks, mark);
    if (first == std::string_view::npos || text[first] != '<')
        return Failure{u"line %1: it is not an XML file."_qs.arg(lineAt(text, first))};
    if (!QUtf8StringView(text.data(), static_cast<qsizetype>(text.size())).isValidUtf8())
        return Failure{u"line %1: it is not encoded in UTF-8."_qs.arg(lineAt(text, firstInvalidByte(text)))};
    return Done{};
}

Failure parseFailure(std::string_view text, const pugi::xml_parse_result& result)
{
    const auto line = lineAt(text, static_cast<std::size_t>(std::max<std::ptrdiff_t>(0, result.offset)));
    if (result.status == pugi::status_out_of_memory)
        return Failure{u"it needs more memory than there is."_qs};
    const auto last = text.find_last_not_of(blanks);
    if (!text.substr(0, last + 1).ends_with("</database>"))
        return Failure{u"line %1: the file is cut off or is not well-formed XML."_qs.arg(line)};
    return Failure{u"line %1: it is not well-formed XML (%2)."_qs.arg(line).arg(
        QString::fromLatin1(result.description()).toLower())};
}

bool isUtf8Name(std::string_view encoding)
{
    const auto name = QString::fromLatin1(encoding.data(), static_cast<qsizetype>(encoding.size())).toLower();
    return name.isEmpty() || name == u"utf-8" || name == u"utf8" || name == u"us-ascii" || name == u"ascii";
}

} // namespace

Outcome<XmlSource> XmlSource::parse(QByteArray bytes)
{
    XmlSource source(std::move(bytes));
    if (auto checked = checkBytes(source.text()); checked.failed())
        return checked.failure();
    if (auto built = source.build(); built.failed())
        return built.failure();
    return source;
}

Outcome<Done> XmlSource::build()
{
    const auto result = document_->load_buffer_inplace(parsed_.data(), static_cast<std::size_t>(parsed_.size()),
                                                       parseFlags, pugi::encoding_utf8);
    if (!result)
        return parseFailure(text(), result);
    return checkTopLevel();
}

Outcome<Done> XmlSource::checkTopLevel() const
{
    int roots = 0;
    for (const auto node : document_->children()) {
        if (node.type() == pugi::node_doctype)
            return Failure{u"it declares a document type, which a family file never does."_qs};
        if (node.type() == pugi::node_declaration && !isUtf8Name(node.attribute("encoding").value()))
            return Failure{u"line 1: it declares the encoding “%1”; a family file is written in UTF-8."_qs.arg(
                QString::fromUtf8(node.attribute("encoding").value()))};
        if (node.type() == pugi::node_element && ++roots == 2)
            return Failure{u"line %1: a second root element follows the first."_qs.arg(line(node))};
    }
    if (text()[text().find_last_not_of(blanks)] != '>')
        return Failure{u"line %1: text follows the end of the document."_qs.arg(lineAt(text(), text().size()))};
    return Done{};
}

bool XmlSource::hasContentOutsideRoot() const
{
    return std::any_of(document_->begin(), document_->end(), [](const pugi::xml_node& node) {
        return node.type() == pugi::node_comment || node.type() == pugi::node_pi;
    });
}

std::size_t XmlSource::start(pugi::xml_node node) const
{
    const char* base = parsed_.constData();
    switch (node.type()) {
    case pugi::node_element:
        return static_cast<std::size_t>(node.name() - base) - 1;
    case pugi::node_pi:
        return static_cast<std::size_t>(node.name() - base) - 2;
    case pugi::node_comment:
        return static_cast<std::size_t>(node.value() - base) - 4;
    default:
        return static_cast<std::size_t>(node.value() - base);
    }
}

qsizetype XmlSource::line(pugi::xml_node node) const
{
    return lineAt(text(), start(node));
}

QByteArray XmlSource::verbatim(pugi::xml_node node) const
{
    const auto from = start(node);
    const auto to = node.type() == pugi::node_element ? elementEnd(text(), from) : markupEnd(text(), from);
    return original_.mid(static_cast<qsizetype>(from), static_cast<qsizetype>(to - from));
}

std::string_view XmlSource::content(pugi::xml_node element) const
{
    const auto from = start(element);
    const auto first = markupEnd(text(), from);
    const auto end = elementEnd(text(), from);
    const auto inside = text().substr(first, end - first);
    return inside.substr(0, std::min(inside.rfind('<'), inside.size()));
}

std::string_view XmlSource::text() const
{
    return {original_.constData(), static_cast<std::size_t>(original_.size())};
}

} // namespace lineara::store
