#include "paper/paper_dialogs.h"

#include "paper_dialog.h"
#include "paper_formats.h"
#include "paper_preview.h"
#include "print_output.h"
#include "print_work.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QLocale>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QSettings>
#include <QSpinBox>

#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <utility>
#include <vector>

namespace lineara {

namespace {

struct PrintDialogTexts
{
    Q_DECLARE_TR_FUNCTIONS(PrintDialog)
};

const QString printGroup = QStringLiteral("printPicture");

QDoubleSpinBox* millimetreBox(const char* name, double most)
{
    auto* const box = new QDoubleSpinBox;
    box->setObjectName(QString::fromLatin1(name));
    box->setRange(0, most);
    box->setDecimals(0);
    box->setSuffix(PrintDialogTexts::tr(" mm"));
    return box;
}

/// How the sheets lie. The numbers are kept in the user's settings.
enum class Lie : std::uint8_t
{
    AsPicture,
    Portrait,
    Landscape
};

class PrintDialog : public PaperDialog
{
public:
    PrintDialog(QWidget* parent, PaperSubject subject) : PaperDialog(parent, std::move(subject), printGroup)
    {
        setObjectName(QStringLiteral("printPicture"));
        setWindowTitle(PrintDialogTexts::tr("Print"));
        addPaper();
        addSizing();
        addMarks();
        QPushButton* const print = addButton(PrintDialogTexts::tr("&Print\u2026"), QStringLiteral("printButton"));
        connect(print, &QPushButton::clicked, this, [this] { askForPrinter(); });
        QPushButton* const save = addButton(PrintDialogTexts::tr("Save as P&DF\u2026"), QStringLiteral("pdfButton"));
        connect(save, &QPushButton::clicked, this, [this] {
            PictureWish wish;
            wish.sheets = sheets();
            askForFile(wish);
        });
        followChoices();
        begin();
    }

protected:
    void restore(const QSettings& settings) override
    {
        const auto value = [&settings](const char* name, const QVariant& usual) {
            return settings.value(printGroup + u'/' + QString::fromLatin1(name), usual);
        };
        format_->setCurrentIndex(std::max(0, format_->findData(value("paper", usualPaper()))));
        lie_->setCurrentIndex(std::max(0, lie_->findData(value("orientation", 0).toInt())));
        sizing_->setCurrentIndex(std::max(0, sizing_->findData(value("sizing", 0).toInt())));
        margin_->setValue(value("margin", 10).toDouble());
        overlap_->setValue(value("overlap", 10).toDouble());
        pages_->setValue(value("pages", 3).toInt());
        percent_->setValue(value("percent", 50).toDouble());
        for (QCheckBox* const mark : marks_)
            mark->setChecked(value(mark->objectName().toLatin1().constData(), true).toBool());
    }

    void keep(QSettings& settings) const override
    {
        const auto put = [&settings](const char* name, const QVariant& value) {
            settings.setValue(printGroup + u'/' + QString::fromLatin1(name), value);
        };
        put("paper", format_->currentData());
        put("orientation", lie_->currentData());
        put("sizing", sizing_->currentData());
        put("margin", margin_->value());
        put("overlap", overlap_->value());
        put("pages", pages_->value());
        put("percent", percent_->value());
        for (const QCheckBox* const mark : marks_)
            put(mark->objectName().toLatin1().constData(), mark->isChecked());
    }

    Outcome<QString> show() override
    {
        const PosterSheets wished = sheets();
        const auto sizing = wished.wish.sizing;
        const bool isPoster = sizing != PosterWish::Sizing::OnePage;
        form().setRowVisible(pages_, isPoster && sizing != PosterWish::Sizing::Scale);
        form().setRowVisible(percent_, sizing == PosterWish::Sizing::Scale);
        form().setRowVisible(overlap_, isPoster);
        for (QCheckBox* const mark : marks_)
            form().setRowVisible(mark, isPoster);
        auto plan = planOf(picture(), wished);
        if (plan.failed()) {
            preview().showAlone();
            return plan.failure();
        }
        const QString summary = summaryOf(plan.value());
        preview().showPages(std::move(plan.value()), wished.marks, picture());
        return summary;
    }

private:
    void addPaper()
    {
        format_ = new QComboBox;
        format_->setObjectName(QStringLiteral("paperFormat"));
        addPaperFormats(*format_);
        lie_ = new QComboBox;
        lie_->setObjectName(QStringLiteral("paperOrientation"));
        const auto add = [this](const QString& text, Lie lie) { lie_->addItem(text, static_cast<int>(lie)); };
        add(PrintDialogTexts::tr("As the picture lies"), Lie::AsPicture);
        add(PrintDialogTexts::tr("Portrait"), Lie::Portrait);
        add(PrintDialogTexts::tr("Landscape"), Lie::Landscape);
        margin_ = millimetreBox("paperMargin", 100);
        form().addRow(PrintDialogTexts::tr("P&aper:"), format_);
        form().addRow(PrintDialogTexts::tr("&Orientation:"), lie_);
        form().addRow(PrintDialogTexts::tr("&Margins:"), margin_);
    }

    void addSizing()
    {
        sizing_ = new QComboBox;
        sizing_->setObjectName(QStringLiteral("posterSizing"));
        const auto add = [this](const QString& text, PosterWish::Sizing sizing) {
            sizing_->addItem(text, static_cast<int>(sizing));
        };
        add(PrintDialogTexts::tr("On one page"), PosterWish::Sizing::OnePage);
        add(PrintDialogTexts::tr("Poster of a chosen size"), PosterWish::Sizing::Scale);
        add(PrintDialogTexts::tr("Poster some pages wide"), PosterWish::Sizing::PagesAcross);
        add(PrintDialogTexts::tr("Poster some pages high"), PosterWish::Sizing::PagesDown);
        pages_ = new QSpinBox;
        pages_->setObjectName(QStringLiteral("posterPages"));
        pages_->setRange(1, 100);
        percent_ = new QDoubleSpinBox;
        percent_->setObjectName(QStringLiteral("posterScale"));
        percent_->setRange(1, 1'000);
        percent_->setDecimals(0);
        percent_->setSuffix(PrintDialogTexts::tr(" %"));
        overlap_ = millimetreBox("posterOverlap", 200);
        form().addRow(PrintDialogTexts::tr("S&ize:"), sizing_);
        form().addRow(PrintDialogTexts::tr("Pa&ges:"), pages_);
        form().addRow(PrintDialogTexts::tr("S&cale:"), percent_);
        form().addRow(PrintDialogTexts::tr("O&verlap:"), overlap_);
    }

    void addMarks()
    {
        const auto add = [this](const QString& text, const char* name) {
            auto* const mark = new QCheckBox(text);
            mark->setObjectName(QString::fromLatin1(name));
            form().addRow(QString(), mark);
            marks_.push_back(mark);
        };
        add(PrintDialogTexts::tr("C&rop marks"), "cropMarks");
        add(PrintDialogTexts::tr("Page &numbers"), "pageNumbers");
        add(PrintDialogTexts::tr("A sheet that shows ho&w they lie"), "assemblyPage");
        add(PrintDialogTexts::tr("Leave out empt&y pages"), "leaveOutBlank");
    }

    void followChoices()
    {
        const auto changed = [this] { choicesChanged(); };
        for (QComboBox* const box : {format_, lie_, sizing_})
            connect(box, &QComboBox::currentIndexChanged, this, changed);
        for (QDoubleSpinBox* const box : {margin_, overlap_, percent_})
            connect(box, &QDoubleSpinBox::valueChanged, this, changed);
        connect(pages_, &QSpinBox::valueChanged, this, changed);
        for (QCheckBox* const mark : marks_)
            connect(mark, &QCheckBox::toggled, this, changed);
    }

    PosterSheets sheets() const
    {
        PosterSheets sheets;
        sheets.sheet.size = paperSize(format_->currentData().toString());
        const bool isWide = picture().size().width() > picture().size().height();
        const Lie lie = static_cast<Lie>(lie_->currentData().toInt());
        if (lie == Lie::Landscape || (lie == Lie::AsPicture && isWide))
            sheets.sheet.size.transpose();
        const double margin = margin_->value() * pointsPerMillimetre;
        sheets.sheet.margins = {margin, margin, margin, margin};
        sheets.wish.sizing = static_cast<PosterWish::Sizing>(sizing_->currentData().toInt());
        sheets.wish.pages = pages_->value();
        sheets.wish.scale = percent_->value() / 100;
        sheets.wish.overlap = overlap_->value() * pointsPerMillimetre;
        sheets.marks = {marks_[0]->isChecked(), marks_[1]->isChecked(), marks_[2]->isChecked(), marks_[3]->isChecked()};
        return sheets;
    }

    QString summaryOf(const PosterPlan& plan) const
    {
        const QString percent = QLocale().toString(plan.scale() * 100, 'f', plan.scale() < 0.1 ? 1 : 0);
        const auto centimetres = [&plan](double points) {
            return QLocale().toString(points * plan.scale() / pointsPerMillimetre / 10, 'f', 0);
        };
        const QString size =
            PrintDialogTexts::tr("%1 \u00d7 %2 cm, %3 % of the full size.")
                .arg(centimetres(picture().size().width()), centimetres(picture().size().height()), percent);
        if (plan.columns() * plan.rows() == 1)
            return PrintDialogTexts::tr("One page.") + u' ' + size;
        return PrintDialogTexts::tr("%n page(s) in %1 \u00d7 %2.", nullptr, static_cast<int>(plan.pages().size()))
                   .arg(plan.columns())
                   .arg(plan.rows()) +
               u' ' + size;
    }

    void askForPrinter()
    {
        const PosterSheets wished = sheets();
        const auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
        setPaper(*printer, wished.sheet);
        auto* const dialog = new QPrintDialog(printer.get(), this);
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        dialog->setOptions(QAbstractPrintDialog::PrintToFile);
        connect(dialog, qOverload<QPrinter*>(&QPrintDialog::accepted), this, [this, wished, printer] {
            // Whatever was chosen there, the pages have been planned for this paper.
            setPaper(*printer, wished.sheet);
            run([this, wished, printer] { return PrintWork::begin(chosenPicture(), wished, printer); });
        });
        // The printer goes with the last who needs it, and the dialog is one of these.
        connect(dialog, &QObject::destroyed, this, [printer] {});
        dialog->open();
    }

    QComboBox* format_ = nullptr;
    QComboBox* lie_ = nullptr;
    QComboBox* sizing_ = nullptr;
    QDoubleSpinBox* margin_ = nullptr;
    QDoubleSpinBox* overlap_ = nullptr;
    QDoubleSpinBox* percent_ = nullptr;
    QSpinBox* pages_ = nullptr;
    std::vector<QCheckBox*> marks_;
};

} // namespace

void showPrint(QWidget* parent, PaperSubject subject)
{
    auto* const dialog = new PrintDialog(parent, std::move(subject));
    dialog->open();
}

} // namespace lineara
