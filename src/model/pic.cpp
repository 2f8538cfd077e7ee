#include "model/pic.h"

#include "model/object_context.h"

#include <utility>

namespace lineara {

void Pic::setData(QByteArray data)
{
    context().setPicData(*this, std::move(data));
}

} // namespace lineara
