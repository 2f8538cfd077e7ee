#pragma once

#include "deflater.h"
#include "file_text.h"
#include "pdf_file.h"
#include "pdf_font.h"
#include "vector_device.h"

#include <memory>
#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

namespace lineara {

struct GlyphRun;

/// A PDF file that is drawn page by page. Shapes that come again (leaves, panels, handles) are kept once, pictures too,
/// and of the fonts only the glyphs that are used.
class PdfCanvas : public VectorSink
{
public:
    PdfCanvas();
    ~PdfCanvas() override;

    /// In points of paper, 72 to an inch.
    void beginPage(QSizeF paper);
    /// What is drawn from now on: the point `origin` of the paper is its top left corner, and its points are `scale`
    /// large there. With `clip`, a rectangle of the paper, nothing is seen beyond that. Areas do not lie within
    /// another.
    void beginArea(QPointF origin, double scale, const std::optional<QRectF>& clip);
    void endArea();
    void endPage();

    /// The whole file. Nothing can be drawn any more.
    QByteArray finish(const QString& title);

    void shape(const VectorShape& shape, QPointF at) override;
    void text(const QString& text, QPointF baseline, const QFont& font, double scale, const QColor& colour) override;
    void image(const QImage& image, const QRectF& place) override;

private:
    struct Seen
    {
        int form = -1; ///< its number once it has come twice
    };

    void put(const QByteArray& ops);
    void endText();
    void setLook(const VectorLook& look);
    QByteArray lookOps(const VectorLook& look);
    QByteArray opacity(double fill, double stroke);
    QByteArray formOf(Seen& seen, const VectorShape& shape);
    void glyphs(PdfFont& font, double size, QPointF baseline, double scale, const GlyphRun& run);
    PdfFont& fontOf(const QRawFont& font);
    int addImage(const QImage& image);

    PdfFile file_;
    int pageTree_;
    int resources_;
    std::vector<int> pages_;
    QSizeF paper_;
    std::unique_ptr<Deflater> content_;
    QByteArray pending_;

    std::optional<VectorLook> look_; // what shapes are painted with at this place of the page
    std::optional<QColor> textColour_;
    bool isInText_ = false;
    QByteArray textFont_;

    std::unordered_map<Fingerprint, Seen, HashOfFingerprint> shapes_;
    std::unordered_map<Fingerprint, int, HashOfFingerprint> images_;
    std::vector<int> forms_;
    std::vector<QByteArray> opacities_;
    std::vector<std::unique_ptr<PdfFont>> fonts_;
    std::vector<std::pair<QRawFont, PdfFont*>> knownFonts_;
};

} // namespace lineara
