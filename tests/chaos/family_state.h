#pragma once

#include "model/object_context.h"
#include "personlist/person_list.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace lineara::chaos {

/// Short text for what its user has put into a family: persons, values, links. What the program works out by itself
/// (rows, places) is left out, so the state after a gesture is one and the same before and after all that follows.
QByteArray stateOf(const ObjectContext& family, const std::optional<TypedValues>& typed = std::nullopt);

/// The family as the bytes of its file.
QByteArray bytesOf(const ObjectContext& family);
QByteArray bytesOf(const QString& path);

QByteArray digestOf(const QByteArray& bytes);

/// Couples with their children, one below the other.
std::unique_ptr<ObjectContext> madeFamily(int persons);

} // namespace lineara::chaos
