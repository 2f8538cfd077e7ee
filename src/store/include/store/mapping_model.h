#pragma once

#include "platform/outcome.h"

#include <QByteArray>

#include <string>
#include <vector>

namespace lineara {

/// Where one property of the newer version comes from.
struct PropertyMapping
{
    std::string from;
    std::string to; ///< empty if what the older one says is given up
    /// How the value is worked out, "dateToYear_12_14" for example; empty if it is taken over as it is.
    std::string function;
};

struct EntityMapping
{
    std::string entity; ///< bears the same name in both versions
    std::vector<PropertyMapping> properties;
};

/// How families of one version of the data model become families of another.
struct MappingModel
{
    int sourceVersion = 0;
    int destinationVersion = 0;
    std::vector<EntityMapping> entities;

    /// Takes a mapping out of the text of a "mapping" file. The failure is the reason alone.
    static Outcome<MappingModel> read(const QByteArray& mapping);
};

} // namespace lineara
