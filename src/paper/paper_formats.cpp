#include "paper_formats.h"

#include <QComboBox>
#include <QLocale>

namespace lineara {

void addPaperFormats(QComboBox& box)
{
    for (const QPageSize::PageSizeId format : paperFormats)
        box.addItem(QPageSize::name(format), QPageSize::key(format));
}

QSizeF paperSize(const QString& key)
{
    for (const QPageSize::PageSizeId format : paperFormats) {
        if (QPageSize::key(format) == key)
            return QPageSize::size(format, QPageSize::Point);
    }
    return QPageSize::size(QPageSize::A4, QPageSize::Point);
}

QString usualPaper()
{
    const bool isMetric = QLocale().measurementSystem() == QLocale::MetricSystem;
    return QPageSize::key(isMetric ? QPageSize::A4 : QPageSize::Letter);
}

} // namespace lineara
