#include "xml_fragment.h"

#include "markup_scan.h"
#include "store_texts.h"

#include <QString>
#include <QUtf8StringView>

#include <algorithm>

namespace lineara::store {

namespace {

/// The position of the first byte that belongs to no valid UTF-8 sequence, in a text that is not valid.
std::size_t firstInvalidByte(std::string_view text)
{
    std::size_t good = 0;
    std::size_t bad = text.size();
    // Texts that end between two characters are valid up to the bad byte and not beyond it, so halving finds it.
    while (bad - good > 1) {
        auto middle = good + (bad - good) / 2;
        while (middle > good && (static_cast<unsigned char>(text[middle]) & 0xC0) == 0x80)
            --middle;
        if (middle == good)
            break;
        const bool isValid = QUtf8StringView(text.data(), static_cast<qsizetype>(middle)).isValidUtf8();
        (isValid ? good : bad) = middle;
    }
    return good;
}

} // namespace

qsizetype lineAt(std::string_view text, std::size_t position)
{
    const auto before = text.substr(0, std::min(position, text.size()));
    return 1 + std::count(before.begin(), before.end(), '\n');
}

std::string parsedTag(std::string_view written)
{
    std::string result(written);
    result[result.find(' ')] = '\0';
    bool isInValue = false;
    for (auto& c : result) {
        const bool endsValue = c == '"' && isInValue;
        if (c == '"')
            isInValue = !isInValue;
        if (c == '=' || endsValue)
            c = '\0';
    }
    return result;
}

std::optional<std::string_view> parsedValue(std::string_view text, std::string_view following)
{
    const auto end = text.find('\0');
    if (end == std::string_view::npos || !text.substr(end + 1).starts_with(following))
        return std::nullopt;
    return text.substr(0, end);
}

bool XmlFragment::parse(std::size_t begin, std::size_t end)
{
    begin_ = begin;
    document_.reset();
    parsed_.resize(static_cast<qsizetype>(end - begin));
    std::copy(file_.begin() + static_cast<std::ptrdiff_t>(begin), file_.begin() + static_cast<std::ptrdiff_t>(end),
              parsed_.begin());
    if (!isText())
        return false;
    const auto result = document_.load_buffer_inplace(parsed_.data(), end - begin, parseFlags, pugi::encoding_utf8);
    if (result)
        return true;
    if (result.status == pugi::status_out_of_memory) {
        failure_ = {StoreTexts::tr("it needs more memory than there is.")};
    } else {
        const auto place = begin + static_cast<std::size_t>(std::max<std::ptrdiff_t>(0, result.offset));
        failure_ = {StoreTexts::tr("line %1: it is not well-formed XML (%2).")
                        .arg(lineAt(file_, place))
                        .arg(QString::fromLatin1(result.description()).toLower())};
    }
    return false;
}

bool XmlFragment::isText()
{
    const std::string_view stretch(parsed_.constData(), static_cast<std::size_t>(parsed_.size()));
    if (const auto zero = stretch.find('\0'); zero != std::string_view::npos) {
        failure_ = {
            StoreTexts::tr("line %1: it holds zero bytes, so it is no text.").arg(lineAt(file_, begin_ + zero))};
        return false;
    }
    if (!QUtf8StringView(stretch.data(), parsed_.size()).isValidUtf8()) {
        const auto place = begin_ + firstInvalidByte(stretch);
        failure_ = {StoreTexts::tr("line %1: it is not encoded in UTF-8.").arg(lineAt(file_, place))};
        return false;
    }
    return true;
}

Failure XmlFragment::failure() const
{
    return failure_;
}

std::size_t XmlFragment::start(pugi::xml_node node) const
{
    const auto within = [this](const char* place) {
        return begin_ + static_cast<std::size_t>(place - parsed_.constData());
    };
    switch (node.type()) {
    case pugi::node_element:
        return within(node.name()) - 1;
    case pugi::node_pi:
        return within(node.name()) - 2;
    case pugi::node_comment:
        return within(node.value()) - 4;
    default:
        return within(node.value());
    }
}

qsizetype XmlFragment::line(pugi::xml_node node) const
{
    return lineAt(file_, start(node));
}

QByteArray XmlFragment::verbatim(pugi::xml_node node) const
{
    const auto from = start(node);
    const auto to = node.type() == pugi::node_element ? elementEnd(file_, from) : markupEnd(file_, from);
    return {file_.data() + from, static_cast<qsizetype>(to - from)};
}

std::string_view XmlFragment::content(pugi::xml_node element) const
{
    const auto from = start(element);
    const auto first = markupEnd(file_, from);
    const auto end = elementEnd(file_, from);
    const auto inside = file_.substr(first, end - first);
    return inside.substr(0, std::min(inside.rfind('<'), inside.size()));
}

} // namespace lineara::store
