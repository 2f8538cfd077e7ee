#include "family_file_check.h"

#include "store/family_file.h"

#include <QBuffer>

namespace lineara {

namespace {

QByteArray textOf(const ObjectContext& family)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    return writeFamily(family, buffer) ? buffer.data() : QByteArray();
}

} // namespace

QString checkFamilyFile(const QByteArray& bytes)
{
    const auto first = readFamily(bytes, u"first"_qs);
    if (first.failed())
        return first.failure().message.isEmpty() ? u"refused without a reason"_qs : QString();
    const auto written = textOf(*first.value().context);
    const auto second = readFamily(written, u"second"_qs);
    if (second.failed())
        return u"what was written can't be read: %1"_qs.arg(second.failure().message);
    if (!second.value().repairs.isEmpty())
        return u"what was written needs a repair: %1"_qs.arg(second.value().repairs.front());
    if (textOf(*second.value().context) != written)
        return u"a second writing gives another text"_qs;
    return {};
}

} // namespace lineara
