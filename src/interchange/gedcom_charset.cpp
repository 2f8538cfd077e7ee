#include "gedcom_charset.h"

#include "gedcom_line.h"
#include "import_failure.h"
#include "import_notes.h"
#include "import_texts.h"

#include <QStringBuilder>

#include <algorithm>
#include <optional>

namespace lineara {
namespace {

constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";

std::string_view viewOf(const QByteArray& bytes)
{
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

/// A GEDCOM text starts with an ASCII character, so that in UTF-16 one of the first two bytes is 0.
bool isUtf16(std::string_view bytes)
{
    if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF"))
        return true;
    return bytes.size() >= 2 && (bytes[0] == '\0') != (bytes[1] == '\0');
}

bool isAscii(std::string_view text)
{
    return std::none_of(text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0x80u) != 0; });
}

struct Header
{
    bool isThere = false;
    std::string_view charset;
};

/// What the header record says, read from any ASCII-compatible text.
Header headerOf(std::string_view text)
{
    Header header;
    GedcomLineReader lines(text);
    while (const auto line = lines.next()) {
        if (line->level == 0 && header.isThere)
            break;
        header.isThere = header.isThere || (line->level == 0 && line->tag == "HEAD");
        if (header.isThere && line->level == 1 && line->tag == "CHAR")
            header.charset = line->value;
    }
    return header;
}

bool isUtf8Name(std::string_view charset)
{
    return charset.starts_with("UTF-8") || charset.starts_with("UTF8");
}

Failure unreadableCharset(const QString& name, const QString& charset)
{
    return importFailure(name,
                         ImportTexts::tr("it is written in the character set %1, which can't be read yet; save it as "
                                         "UTF-8 and import it again.")
                             .arg(charset));
}

Failure notUtf8(std::string_view text, const QString& name)
{
    const Header header = headerOf(text);
    if (!header.isThere)
        return notGedcom(name);
    if (header.charset.empty() || isUtf8Name(header.charset))
        return importFailure(name,
                             ImportTexts::tr("it is said to be in UTF-8, but is not; save it as UTF-8 and import it "
                                             "again."));
    return unreadableCharset(name, inQuotes(header.charset));
}

} // namespace

Outcome<std::string_view> gedcomText(const QByteArray& bytes, const QString& name, ImportNotes& notes)
{
    std::string_view text = viewOf(bytes);
    if (text.starts_with(utf8Mark))
        text.remove_prefix(utf8Mark.size());
    if (text.empty())
        return importFailure(name, ImportTexts::tr("the file is empty."));
    if (isUtf16(text))
        return unreadableCharset(name, QStringLiteral("\"UTF-16\""));
    if (isAscii(text))
        return text;
    if (!bytes.isValidUtf8())
        return notUtf8(text, name);
    const auto charset = headerOf(text).charset;
    if (!charset.empty() && !isUtf8Name(charset))
        notes.aboutFile(ImportTexts::tr("The file declares the character set %1, but is in UTF-8 and was read so.")
                            .arg(inQuotes(charset)));
    return text;
}

} // namespace lineara
