#include "recorded_sex.h"

#include <string_view>

namespace lineara {

namespace {

using kinship::Sex;

constexpr std::string_view sexTag = "SEX";
constexpr std::string_view sexBlanks = " \t\r";

std::string_view withoutBlanks(std::string_view text)
{
    const std::size_t begin = text.find_first_not_of(sexBlanks);
    if (begin == std::string_view::npos)
        return {};
    return text.substr(begin, text.find_last_not_of(sexBlanks) - begin + 1);
}

bool isBlank(char character)
{
    return sexBlanks.find(character) != std::string_view::npos;
}

/// `before` is what stands before the tag on its line, which must be the level and blanks, and `after` what follows.
bool isLineOfPerson(std::string_view before, std::string_view after)
{
    return !before.empty() && isBlank(before.back()) && withoutBlanks(before) == "1" && !after.empty() &&
           isBlank(after.front());
}

Sex sexNamed(std::string_view value)
{
    if (value == "F" || value == "f")
        return Sex::Female;
    return value == "M" || value == "m" ? Sex::Male : Sex::Unknown;
}

} // namespace

/// Looks for the tag alone, since cutting a long record into all its lines would take many times as long.
Sex recordedSex(const QByteArray& record)
{
    const std::string_view text(record.constData(), static_cast<std::size_t>(record.size()));
    for (std::size_t at = text.find(sexTag); at != std::string_view::npos; at = text.find(sexTag, at + 1)) {
        const std::size_t begin = text.rfind('\n', at) + 1; // 0 where there is none
        const std::size_t value = at + sexTag.size();
        const std::string_view after = text.substr(value, text.find('\n', value) - value);
        if (!isLineOfPerson(text.substr(begin, at - begin), after))
            continue;
        if (const Sex sex = sexNamed(withoutBlanks(after)); sex != Sex::Unknown)
            return sex;
    }
    return Sex::Unknown;
}

} // namespace lineara
