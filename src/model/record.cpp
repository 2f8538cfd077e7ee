#include "model/record.h"

#include <string>

namespace lineara {

std::strong_ordering compareAsText(RecordId a, RecordId b)
{
    return std::to_string(a.number) <=> std::to_string(b.number);
}

} // namespace lineara
