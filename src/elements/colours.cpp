#include "elements/colours.h"

#include "model/pool.h"

namespace lineara::colours {

QColor linkFill(QStringView linkType)
{
    return linkType == partnerLink ? partnerFill() : offspringFill();
}

QColor linkStroke(QStringView linkType)
{
    return linkType == partnerLink ? partnerStroke() : offspringStroke();
}

} // namespace lineara::colours
