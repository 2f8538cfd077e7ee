#pragma once

#include <QPageSize>
#include <QSizeF>

#include <array>

class QComboBox;

namespace lineara {

/// The papers that are offered, the most usual ones first.
inline constexpr std::array paperFormats{QPageSize::A4,      QPageSize::A3,    QPageSize::A2,     QPageSize::A1,
                                         QPageSize::A0,      QPageSize::A5,    QPageSize::Letter, QPageSize::Legal,
                                         QPageSize::Tabloid, QPageSize::AnsiC, QPageSize::AnsiD,  QPageSize::AnsiE};

/// Adds them with their names; the value of each is its key ("A4").
void addPaperFormats(QComboBox& box);
/// Points of an upright sheet; A4 for a key that is not known.
QSizeF paperSize(const QString& key);
/// What is usual where the program runs.
QString usualPaper();

inline constexpr double pointsPerMillimetre = 72 / 25.4;

} // namespace lineara
