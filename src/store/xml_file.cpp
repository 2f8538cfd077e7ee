#include "xml_file.h"

#include "markup_scan.h"
#include "object_members.h"
#include "store_texts.h"

#include <algorithm>
#include <string>

namespace lineara::store {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

bool isUtf8Name(std::string_view encoding)
{
    const auto name = QString::fromLatin1(encoding.data(), static_cast<qsizetype>(encoding.size())).toLower();
    return name.isEmpty() || name == u"utf-8" || name == u"utf8" || name == u"us-ascii" || name == u"ascii";
}

Outcome<Done> checkBeginning(std::string_view text)
{
    constexpr std::size_t wellIntoTheFile = 4096;
    if (text.empty())
        return Failure{StoreTexts::tr("it is empty.")};
    if (text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF"))
        return Failure{StoreTexts::tr("line 1: it is not encoded in UTF-8.")};
    const auto beginning = text.substr(0, wellIntoTheFile);
    if (const auto zero = beginning.find('\0'); zero != std::string_view::npos)
        return Failure{StoreTexts::tr("line %1: it holds zero bytes, so it is no text.").arg(lineAt(text, zero))};
    return Done{};
}

/// Whether the tree of this stretch would outgrow the text by far. Ordinary stretches are too short for that, and
/// pictures, which may be long, have neither elements nor attributes within.
bool holdsTooManyParts(std::string_view stretch)
{
    constexpr std::size_t harmless = std::size_t{16} << 20;
    constexpr std::ptrdiff_t mostParts = 2'000'000;
    if (stretch.size() <= harmless)
        return false;
    std::ptrdiff_t parts = std::count(stretch.begin(), stretch.end(), '<');
    for (auto at = stretch.find("=\""); at != std::string_view::npos; at = stretch.find("=\"", at + 2))
        ++parts;
    for (auto at = stretch.find("='"); at != std::string_view::npos; at = stretch.find("='", at + 2))
        ++parts;
    return parts > mostParts;
}

} // namespace

Outcome<XmlFile> XmlFile::open(std::string_view text, std::string_view rootName)
{
    if (auto checked = checkBeginning(text); checked.failed())
        return checked.failure();
    XmlFile file(text);
    if (auto read = file.readProlog(); read.failed())
        return read.failure();
    if (auto read = file.readRootTag(rootName); read.failed())
        return read.failure();
    if (auto read = file.readEpilog(rootName); read.failed())
        return read.failure();
    return file;
}

Outcome<Done> XmlFile::readProlog()
{
    const auto begin = text_.starts_with(byteOrderMark) ? byteOrderMark.size() : 0;
    for (auto at = begin;;) {
        at = std::min(text_.find_first_not_of(blanks, at), text_.size());
        const auto rest = text_.substr(at);
        if (!rest.starts_with('<'))
            return Failure{StoreTexts::tr("line %1: it is not an XML file.").arg(lineAt(text_, at))};
        if (rest.starts_with("<?") || rest.starts_with("<!--")) {
            at = markupEnd(text_, at);
            continue;
        }
        if (rest.starts_with("<!"))
            return Failure{StoreTexts::tr("line %1: it declares a document type, which a family file never does.")
                               .arg(lineAt(text_, at))};
        rootBegin_ = at;
        break;
    }
    XmlFragment prolog(text_);
    if (!prolog.parse(begin, rootBegin_))
        return prolog.failure();
    const auto declaration =
        prolog.top().find_child([](pugi::xml_node node) { return node.type() == pugi::node_declaration; });
    const std::string_view encoding = declaration.attribute("encoding").value();
    if (!isUtf8Name(encoding))
        return Failure{StoreTexts::tr("line 1: it declares the encoding %1; a family file is written in UTF-8.")
                           .arg(shown(encoding))};
    return checkAround(prolog);
}

Outcome<Done> XmlFile::readRootTag(std::string_view rootName)
{
    at_ = rootTagEnd_ = markupEnd(text_, rootBegin_);
    // The start tag becomes a whole element, so that the parser can judge it.
    const auto tag = text_.substr(rootBegin_, at_ - rootBegin_);
    const bool isEmpty = tag.ends_with("/>");
    const auto name = tag.substr(1, tag.find_first_of(" \t\r\n/>", 1) - 1);
    const auto element = std::string(tag) + (isEmpty ? std::string() : "</" + std::string(name) + '>');
    XmlFragment root{element};
    if (!root.parse(0, element.size()))
        return Failure{StoreTexts::tr("line %1: it is cut off or not well-formed XML.").arg(rootLine())};
    if (name != rootName)
        return Failure{StoreTexts::tr("line %1: its root element is %2 instead of %3.")
                           .arg(rootLine())
                           .arg(shown(name), shown(rootName))};
    hasContentAroundRoot_ = hasContentAroundRoot_ || root.top().first_child().first_attribute();
    if (isEmpty)
        end_ = at_;
    return Done{};
}

Outcome<Done> XmlFile::readEpilog(std::string_view rootName)
{
    auto epilogBegin = at_;
    if (end_ == 0) {
        const auto endTag = "</" + std::string(rootName);
        end_ = text_.rfind(endTag);
        const auto close =
            text_.find_first_not_of(blanks, std::min(end_, text_.size() - endTag.size()) + endTag.size());
        if (end_ == std::string_view::npos || end_ < at_ || close == std::string_view::npos || text_[close] != '>')
            return Failure{StoreTexts::tr("line %1: it is cut off; the end of the family is missing.")
                               .arg(lineAt(text_, text_.size()))};
        epilogBegin = close + 1;
    }
    XmlFragment epilog(text_);
    if (!epilog.parse(epilogBegin, text_.size()))
        return epilog.failure();
    return checkAround(epilog);
}

Outcome<Done> XmlFile::checkAround(const XmlFragment& fragment)
{
    for (const auto node : fragment.top().children()) {
        switch (node.type()) {
        case pugi::node_declaration:
            break;
        case pugi::node_comment:
        case pugi::node_pi:
            hasContentAroundRoot_ = true;
            break;
        case pugi::node_element:
            return Failure{
                StoreTexts::tr("line %1: a second root element follows the first.").arg(fragment.line(node))};
        default:
            return Failure{StoreTexts::tr("line %1: text follows the end of the family.").arg(fragment.line(node))};
        }
    }
    return Done{};
}

Outcome<bool> XmlFile::next(XmlFragment& fragment)
{
    constexpr std::string_view objectEnd = "</object>";
    // The tree is about three times as large; both should fit into the processor's second cache.
    constexpr std::size_t stretchSize = 128 * 1024;
    if (at_ >= end_)
        return false;
    for (auto size = stretchSize;; size *= 2) {
        const auto candidate = end_ - at_ <= size ? std::string_view::npos : text_.find(objectEnd, at_ + size);
        const auto end = candidate < end_ ? candidate + objectEnd.size() : end_;
        if (holdsTooManyParts(text_.substr(at_, end - at_)))
            return Failure{StoreTexts::tr("from line %1 on: one object holds more parts than any person has.")
                               .arg(lineAt(text_, at_))};
        const bool isWellFormed = fragment.parse(at_, end);
        if (!isWellFormed && end == end_)
            return fragment.failure();
        if (isWellFormed) {
            at_ = end;
            return true;
        }
        size = std::max(size, end - at_);
    }
}

} // namespace lineara::store
