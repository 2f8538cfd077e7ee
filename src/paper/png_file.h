#pragma once

#include "deflater.h"

#include <QByteArray>
#include <QSize>

#include <array>
#include <vector>

class QImage;

namespace lineara {

/// A PNG file that is made stripe by stripe, from the top, so that its pixels are never held all at once.
class PngFile
{
public:
    PngFile(QSize size, bool isTransparent);

    /// Rows as wide as the file, of 32 bits a pixel.
    void add(const QImage& rows);
    /// The whole file, once all rows have been added.
    QByteArray finish();

private:
    void addRow(const unsigned char* row);
    void chunk(const char* name, const QByteArray& content);

    qsizetype bytesPerPixel_;
    std::vector<unsigned char> above_; // the row before this one
    std::array<QByteArray, 3> filtered_;
    Deflater pixels_;
    QByteArray bytes_;
};

} // namespace lineara
