#include "paper/paper_dialogs.h"

#include "paper_dialog.h"
#include "paper_formats.h"
#include "paper_preview.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QSettings>
#include <QSignalBlocker>
#include <QSpinBox>

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

namespace lineara {

namespace {

struct ExportDialogTexts
{
    Q_DECLARE_TR_FUNCTIONS(ExportDialog)
};

const QString exportGroup = QStringLiteral("exportPicture");
constexpr double exportMargin = 10 * pointsPerMillimetre;
constexpr double usualPixels = 16'000'000; ///< of a PNG picture that nobody has chosen a size for

QSpinBox* pixelBox(const char* name)
{
    auto* const box = new QSpinBox;
    box->setObjectName(QString::fromLatin1(name));
    box->setRange(1, 1'000'000);
    box->setGroupSeparatorShown(true);
    box->setKeyboardTracking(false);
    return box;
}

/// Pixels for each point of a picture that nobody has chosen a size for: all of them, if it is not too large.
double usualScale(QSizeF picture)
{
    return std::min({1.0, std::sqrt(usualPixels / (picture.width() * picture.height())),
                     mostPixelsAcross / std::max(picture.width(), picture.height())});
}

class ExportDialog : public PaperDialog
{
public:
    ExportDialog(QWidget* parent, PaperSubject subject) : PaperDialog(parent, std::move(subject), exportGroup)
    {
        setObjectName(QStringLiteral("exportPicture"));
        setWindowTitle(ExportDialogTexts::tr("Export Picture"));
        addKind();
        addPage();
        addPixels();
        QPushButton* const save = addButton(ExportDialogTexts::tr("&Export\u2026"), QStringLiteral("exportButton"));
        connect(save, &QPushButton::clicked, this, [this] { askForFile(wish()); });
        begin();
    }

protected:
    void restore(const QSettings& settings) override
    {
        const auto value = [&settings](const char* name) {
            return settings.value(exportGroup + u'/' + QString::fromLatin1(name));
        };
        kind_->setCurrentIndex(std::max(0, kind_->findData(value("kind").toInt())));
        page_->setCurrentIndex(std::max(0, page_->findData(value("page").toString())));
        transparent_->setChecked(value("transparent").toBool());
    }

    void keep(QSettings& settings) const override
    {
        settings.setValue(exportGroup + QStringLiteral("/kind"), kind_->currentData());
        settings.setValue(exportGroup + QStringLiteral("/page"), page_->currentData());
        settings.setValue(exportGroup + QStringLiteral("/transparent"), transparent_->isChecked());
    }

    Outcome<QString> show() override
    {
        const PictureKind kind = wish().kind;
        form().setRowVisible(page_, kind == PictureKind::Pdf);
        form().setRowVisible(pixels_, kind == PictureKind::Png);
        form().setRowVisible(transparent_, kind != PictureKind::Pdf);
        preview().setTransparent(kind != PictureKind::Pdf && transparent_->isChecked());
        followShape();
        preview().showAlone();
        return kind == PictureKind::Pdf ? showPage() : kind == PictureKind::Png ? showPixels() : showSize();
    }

private:
    void addKind()
    {
        kind_ = new QComboBox;
        kind_->setObjectName(QStringLiteral("pictureKind"));
        const auto add = [this](const QString& text, PictureKind kind) {
            kind_->addItem(text, static_cast<int>(kind));
        };
        add(ExportDialogTexts::tr("PDF \u2013 for printing and sending"), PictureKind::Pdf);
        add(ExportDialogTexts::tr("SVG \u2013 for web pages and drawing programs"), PictureKind::Svg);
        add(ExportDialogTexts::tr("PNG \u2013 a picture of pixels"), PictureKind::Png);
        form().addRow(ExportDialogTexts::tr("&Kind:"), kind_);
        connect(kind_, &QComboBox::currentIndexChanged, this, [this] { choicesChanged(); });
    }

    void addPage()
    {
        page_ = new QComboBox;
        page_->setObjectName(QStringLiteral("picturePage"));
        page_->addItem(ExportDialogTexts::tr("As large as the family"), QString());
        addPaperFormats(*page_);
        form().addRow(ExportDialogTexts::tr("&Page:"), page_);
        connect(page_, &QComboBox::currentIndexChanged, this, [this] { choicesChanged(); });
    }

    void addPixels()
    {
        pixels_ = new QWidget;
        auto* const row = new QHBoxLayout(pixels_);
        row->setContentsMargins(0, 0, 0, 0);
        width_ = pixelBox("pictureWidth");
        height_ = pixelBox("pictureHeight");
        width_->setAccessibleName(ExportDialogTexts::tr("Width in pixels"));
        height_->setAccessibleName(ExportDialogTexts::tr("Height in pixels"));
        row->addWidget(width_);
        row->addWidget(new QLabel(QStringLiteral("\u00d7")));
        row->addWidget(height_);
        row->addStretch(1);
        pixels_->setFocusProxy(width_);
        form().addRow(ExportDialogTexts::tr("Si&ze in pixels:"), pixels_);
        transparent_ = new QCheckBox(ExportDialogTexts::tr("T&ransparent ground"));
        transparent_->setObjectName(QStringLiteral("pictureTransparent"));
        form().addRow(QString(), transparent_);
        connect(transparent_, &QCheckBox::toggled, this, [this] { choicesChanged(); });
        connect(width_, &QSpinBox::valueChanged, this, [this](int width) {
            chosenScale_ = width / picture().size().width();
            choicesChanged();
        });
        connect(height_, &QSpinBox::valueChanged, this, [this](int height) {
            chosenScale_ = height / picture().size().height();
            choicesChanged();
        });
    }

    /// Both sides follow from one number, because the picture keeps its shape.
    void followShape()
    {
        const QSizeF size = picture().size();
        const double scale = chosenScale_.value_or(usualScale(size));
        const QSignalBlocker noWidth(width_);
        const QSignalBlocker noHeight(height_);
        width_->setValue(std::max(1, static_cast<int>(std::lround(size.width() * scale))));
        height_->setValue(std::max(1, static_cast<int>(std::lround(size.height() * scale))));
    }

    PictureWish wish() const
    {
        PictureWish wish;
        wish.kind = static_cast<PictureKind>(kind_->currentData().toInt());
        wish.ground = transparent_->isChecked() ? PictureGround::Transparent : PictureGround::White;
        wish.pixels = {width_->value(), height_->value()};
        const QString format = page_->currentData().toString();
        if (!format.isEmpty()) {
            QSizeF size = paperSize(format);
            if (picture().size().width() > picture().size().height())
                size.transpose();
            const QMarginsF margins(exportMargin, exportMargin, exportMargin, exportMargin);
            wish.sheets = PosterSheets{{size, margins}, {}, {}};
        }
        return wish;
    }

    Outcome<QString> showPage()
    {
        const PictureWish wished = wish();
        if (!wished.sheets)
            return ExportDialogTexts::tr("One page of %1 \u00d7 %2 cm.")
                .arg(centimetres(ownPageOf(picture().size()).sheet().size.width()))
                .arg(centimetres(ownPageOf(picture().size()).sheet().size.height()));
        auto plan = planOf(picture(), *wished.sheets);
        if (plan.failed())
            return plan.failure();
        const double percent = plan.value().scale() * 100;
        preview().showPages(std::move(plan.value()), wished.sheets->marks, picture());
        return ExportDialogTexts::tr("One page, at %L1 % of the full size.").arg(percent, 0, 'f', percent < 10 ? 1 : 0);
    }

    Outcome<QString> showPixels()
    {
        if (auto obstacle = PictureExport::begin(picture(), wish()); obstacle.failed())
            return obstacle.failure();
        return ExportDialogTexts::tr("%L1 million pixels.")
            .arg(static_cast<double>(width_->value()) * height_->value() / 1e6, 0, 'f', 1);
    }

    Outcome<QString> showSize()
    {
        return ExportDialogTexts::tr("Sharp at any size; %L1 \u00d7 %L2 pixels as shown at first.")
            .arg(std::lround(picture().size().width()))
            .arg(std::lround(picture().size().height()));
    }

    static QString centimetres(double points) { return QLocale().toString(points / pointsPerMillimetre / 10, 'f', 1); }

    QComboBox* kind_ = nullptr;
    QComboBox* page_ = nullptr;
    QWidget* pixels_ = nullptr;
    QSpinBox* width_ = nullptr;
    QSpinBox* height_ = nullptr;
    QCheckBox* transparent_ = nullptr;
    std::optional<double> chosenScale_; // pixels for each point of the picture
};

} // namespace

void showExportPicture(QWidget* parent, PaperSubject subject)
{
    auto* const dialog = new ExportDialog(parent, std::move(subject));
    dialog->open();
}

} // namespace lineara
