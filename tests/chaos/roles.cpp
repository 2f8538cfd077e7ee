#include "roles.h"

#include <functional>
#include <map>

namespace lineara::chaos {

int play(const QStringList& role)
{
    static const std::map<QString, std::function<int(const QStringList&)>> roles = {
        {QStringLiteral("edit"), edit}, {QStringLiteral("look"), look},   {QStringLiteral("migrate"), migrate},
        {QStringLiteral("hold"), hold}, {QStringLiteral("adopt"), adopt}, {QStringLiteral("fail"), fail}};
    const auto found = roles.find(role.value(0));
    return found == roles.end() ? 2 : found->second(role.mid(1));
}

} // namespace lineara::chaos
