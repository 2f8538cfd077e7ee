#pragma once

#include <QStringList>

class QMimeData;

namespace lineara {

/// The paths of the files on this machine that are being dropped and are named like families (.lineara, .ged, .gdz, in
/// any case of letters); empty if there are none. Nobody looks into files while they are dragged about.
QStringList droppedFamilies(const QMimeData& data);

} // namespace lineara
