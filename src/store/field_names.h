#pragma once

#include "model/person.h"

#include <array>
#include <cstdint>
#include <optional>

/// The words of a family file, shared by the reader and the writer. What stands here is frozen: files hold it.
namespace lineara::store {

inline constexpr int currentFormatVersion = 1;

inline constexpr const char* rootName = "database";
inline constexpr const char* infoName = "databaseInfo";

inline constexpr const char* poolEntity = "POOL";
inline constexpr const char* personEntity = "PERSON";
inline constexpr const char* picEntity = "PIC";
inline constexpr const char* sourceEntity = "SOURCERECORD";

struct TextField
{
    const char* name;
    std::optional<QString> PersonValues::*value;
};

struct NumberField
{
    const char* name;
    std::optional<std::int32_t> PersonValues::*value;
};

/// In the order in which they are written: texts before numbers.
inline constexpr std::array<TextField, 2> personTexts{{
    {"name", &PersonValues::name},
    {"additional", &PersonValues::additional},
}};
inline constexpr std::array<NumberField, 8> personNumbers{{
    {"birthDay", &PersonValues::birthDay},
    {"birthMonth", &PersonValues::birthMonth},
    {"birthYear", &PersonValues::birthYear},
    {"deathDay", &PersonValues::deathDay},
    {"deathMonth", &PersonValues::deathMonth},
    {"deathYear", &PersonValues::deathYear},
    {"generation", &PersonValues::generation},
    {"x", &PersonValues::x},
}};

} // namespace lineara::store
