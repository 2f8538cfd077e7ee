#include "media_types.h"

#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <array>

namespace lineara {
namespace {

struct Format
{
    const char* word;
    const char* mediaType;
};

/// Of several words for one type the first is what 5.5.1 says. What no picture is by its word is none by its type.
constexpr std::array<Format, 22> formats = {
    {{"jpg", "image/jpeg"},      {"jpeg", "image/jpeg"},     {"png", "image/png"},       {"gif", "image/gif"},
     {"bmp", "image/bmp"},       {"tif", "image/tiff"},      {"tiff", "image/tiff"},     {"webp", "image/webp"},
     {"photo", "image/x-photo"}, {"wav", "audio/wav"},       {"mp3", "audio/mpeg"},      {"aiff", "audio/aiff"},
     {"mpg", "video/mpeg"},      {"mpeg", "video/mpeg"},     {"mp4", "video/mp4"},       {"mov", "video/quicktime"},
     {"avi", "video/x-msvideo"}, {"pdf", "application/pdf"}, {"rtf", "application/rtf"}, {"doc", "application/msword"},
     {"txt", "text/plain"},      {"htm", "text/html"}}};
constexpr const char* unknownType = "application/octet-stream";
constexpr QLatin1String otherTypes("application/x-");

std::optional<QString> knownType(const QString& word)
{
    const auto format =
        std::ranges::find_if(formats, [&](const Format& one) { return word == QLatin1String(one.word); });
    return format == formats.end() ? std::nullopt : std::optional(QString::fromLatin1(format->mediaType));
}

/// Whether it is written as one, and of a kind that there is: "N/A" is none.
bool isMediaType(const QString& text)
{
    static const QRegularExpression shape(
        QRegularExpression::anchoredPattern(
            QStringLiteral("(application|audio|chemical|example|font|image|message|model|multipart|text|video|x-%1)/%1"
                           "( *; *%1=(%1|\"[ !#-~]*\"))*")
                .arg(QStringLiteral("[A-Za-z0-9!#$%&'*+.^_`{|}~-]+"))),
        QRegularExpression::CaseInsensitiveOption);
    return shape.match(text).hasMatch();
}

} // namespace

QString mediaTypeByName(const QString& file)
{
    return knownType(QFileInfo(file).suffix().toLower()).value_or(QString::fromLatin1(unknownType));
}

std::optional<QString> mediaTypeOf(const QString& format, const QString& file)
{
    static const QRegularExpression token(QStringLiteral("^[a-z0-9][a-z0-9.+_-]*$"));
    const QString word = format.trimmed().toLower();
    if (word.isEmpty())
        return mediaTypeByName(file);
    if (isMediaType(word))
        return format.trimmed();
    if (auto known = knownType(word))
        return known;
    return token.match(word).hasMatch() ? std::optional(QString(otherTypes + word)) : std::nullopt;
}

QString formatOf(const QString& mediaType)
{
    const QString type = mediaType.trimmed().toLower();
    const auto format =
        std::ranges::find_if(formats, [&](const Format& one) { return type == QLatin1String(one.mediaType); });
    if (format != formats.end())
        return QString::fromLatin1(format->word);
    return type.startsWith(otherTypes) && type.size() > otherTypes.size() ? type.sliced(otherTypes.size()) : mediaType;
}

} // namespace lineara
