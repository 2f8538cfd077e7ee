#include "paper_dialog.h"

#include "canvas/family_scene.h"
#include "file_work.h"
#include "paper_preview.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QSettings>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace lineara {

namespace {

struct PaperDialogTexts
{
    Q_DECLARE_TR_FUNCTIONS(PaperDialog)
};

constexpr int moment = 150;              // milliseconds until a preview follows
constexpr int progressSteps = 1000;      // of the bar
constexpr qsizetype mostNameBytes = 255; // of a file, in any usual file system

QString suffixOf(PictureKind kind)
{
    return kind == PictureKind::Pdf   ? QStringLiteral("pdf")
           : kind == PictureKind::Svg ? QStringLiteral("svg")
                                      : QStringLiteral("png");
}

/// As much of a name as fits a number of bytes, in whole characters.
QString fittingBytes(const QString& name, qsizetype bytes)
{
    QByteArray utf8 = name.toUtf8();
    if (utf8.size() <= bytes)
        return name;
    const auto isWithin = [](char byte) { return (byte & 0xC0) == 0x80; };
    while (isWithin(utf8[bytes]))
        --bytes;
    utf8.truncate(bytes);
    return QString::fromUtf8(utf8).trimmed();
}

/// What no file system takes for a part of a name is left out, and what goes beyond its length.
QString fileNameFor(const QString& title, const QString& suffix)
{
    QString name;
    for (const QChar letter : title) {
        if (letter >= u' ' && !QStringLiteral("/\\:*?\"<>|").contains(letter))
            name += letter;
    }
    const QString ending = u'.' + suffix;
    name = fittingBytes(name.simplified(), mostNameBytes - ending.size());
    return (name.isEmpty() ? PaperDialogTexts::tr("Family") : name) + ending;
}

QWidget* beside(QCheckBox* box, QLineEdit* field)
{
    auto* const both = new QWidget;
    auto* const row = new QHBoxLayout(both);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(box);
    row->addWidget(field, 1);
    both->setFocusProxy(field);
    QObject::connect(box, &QCheckBox::toggled, field, &QWidget::setEnabled);
    field->setEnabled(false);
    return both;
}

} // namespace

PaperDialog::PaperDialog(QWidget* parent, PaperSubject subject, QString settings)
    : QDialog(parent), subject_(std::move(subject)), settings_(std::move(settings)), choices_(new QWidget),
      form_(new QFormLayout(choices_)), preview_(new PaperPreview), summary_(new QLabel), progress_(new QProgressBar),
      buttons_(new QDialogButtonBox(QDialogButtonBox::Cancel))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowModality(Qt::WindowModal);
    form_->setContentsMargins(0, 0, 0, 0);
    summary_->setObjectName(QStringLiteral("paperSummary"));
    summary_->setWordWrap(true);
    summary_->setTextFormat(Qt::PlainText);
    progress_->setObjectName(QStringLiteral("paperProgress"));
    progress_->setRange(0, progressSteps);
    progress_->hide();
    auto* const panes = new QHBoxLayout;
    auto* const left = new QVBoxLayout;
    left->addWidget(choices_);
    left->addStretch(1);
    left->addWidget(summary_);
    panes->addLayout(left);
    panes->addWidget(preview_, 1);
    auto* const rows = new QVBoxLayout(this);
    rows->addLayout(panes, 1);
    rows->addWidget(progress_);
    rows->addWidget(buttons_);
    connect(buttons_, &QDialogButtonBox::rejected, this, &PaperDialog::reject);
    refresh_.setSingleShot(true);
    connect(&refresh_, &QTimer::timeout, this, [this] { refreshPicture(); });
    changes_ = family().observe([this](const Change&) { refresh_.start(moment); });
    addPartAndTexts();
}

PaperDialog::~PaperDialog() = default;

ObjectContext& PaperDialog::family() const
{
    return subject_.scene->pool().context();
}

void PaperDialog::addPartAndTexts()
{
    part_ = new QComboBox;
    part_->setObjectName(QStringLiteral("paperPart"));
    part_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    part_->setMinimumContentsLength(24);
    for (const PaperPart& offered : subject_.parts)
        part_->addItem(offered.label);
    hasTitle_ = new QCheckBox;
    hasTitle_->setObjectName(QStringLiteral("hasTitle"));
    hasTitle_->setAccessibleName(PaperDialogTexts::tr("Show a title"));
    title_ = new QLineEdit(subject_.title);
    title_->setObjectName(QStringLiteral("paperTitle"));
    title_->setAccessibleName(PaperDialogTexts::tr("Title"));
    hasFooter_ = new QCheckBox;
    hasFooter_->setObjectName(QStringLiteral("hasFooter"));
    hasFooter_->setAccessibleName(PaperDialogTexts::tr("Show a footer"));
    footer_ = new QLineEdit(subject_.footer);
    footer_->setObjectName(QStringLiteral("paperFooter"));
    footer_->setAccessibleName(PaperDialogTexts::tr("Footer"));
    form_->addRow(PaperDialogTexts::tr("&Show:"), part_);
    form_->addRow(PaperDialogTexts::tr("&Title:"), beside(hasTitle_, title_));
    form_->addRow(PaperDialogTexts::tr("&Footer:"), beside(hasFooter_, footer_));
    const auto changed = [this] { refresh_.start(moment); };
    connect(part_, &QComboBox::currentIndexChanged, this, changed);
    for (QCheckBox* const box : {hasTitle_, hasFooter_})
        connect(box, &QCheckBox::toggled, this, changed);
    for (QLineEdit* const field : {title_, footer_})
        connect(field, &QLineEdit::textChanged, this, changed);
}

QPushButton* PaperDialog::addButton(const QString& text, const QString& name)
{
    auto* const button = buttons_->addButton(text, QDialogButtonBox::ActionRole);
    button->setObjectName(name);
    button->setAutoDefault(commands_.empty());
    button->setDefault(commands_.empty());
    commands_.push_back(button);
    return button;
}

void PaperDialog::begin()
{
    const QSettings settings;
    hasTitle_->setChecked(settings.value(settings_ + QStringLiteral("/hasTitle"), true).toBool());
    hasFooter_->setChecked(settings.value(settings_ + QStringLiteral("/hasFooter"), false).toBool());
    restore(settings);
    refreshPicture();
}

void PaperDialog::keepAll() const
{
    QSettings settings;
    settings.setValue(settings_ + QStringLiteral("/hasTitle"), hasTitle_->isChecked());
    settings.setValue(settings_ + QStringLiteral("/hasFooter"), hasFooter_->isChecked());
    keep(settings);
}

std::unique_ptr<PaperPicture> PaperDialog::chosenPicture() const
{
    const int chosen = std::max(0, part_->currentIndex());
    const PicturePart part =
        subject_.parts.empty() ? PicturePart() : subject_.parts[static_cast<std::size_t>(chosen)].part;
    const PaperTexts texts{hasTitle_->isChecked() ? title_->text() : QString(),
                           hasFooter_->isChecked() ? footer_->text() : QString()};
    return std::make_unique<PaperPicture>(*subject_.scene, part, texts);
}

void PaperDialog::refreshPicture()
{
    if (runner_)
        return;
    refresh_.stop();
    picture_ = chosenPicture();
    preview_->showPicture(*picture_);
    choicesChanged();
}

void PaperDialog::choicesChanged()
{
    if (!picture_)
        return;
    const auto summary = show();
    summary_->setText(summary.failed() ? summary.failure().message : summary.value());
    for (QPushButton* const command : commands_)
        command->setEnabled(!summary.failed());
}

void PaperDialog::askForFile(const PictureWish& wish)
{
    const QString suffix = suffixOf(wish.kind);
    auto* const dialog = new QFileDialog(this, PaperDialogTexts::tr("Save Picture"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(suffix);
    dialog->setNameFilter(PaperDialogTexts::tr("%1 files (%2)").arg(suffix.toUpper(), QStringLiteral("*.") + suffix));
    const QString kept = QSettings().value(settings_ + QStringLiteral("/folder")).toString();
    dialog->setDirectory(!kept.isEmpty() && QDir(kept).exists() ? kept : subject_.folder);
    dialog->selectFile(fileNameFor(title_->text(), suffix));
    connect(dialog, &QFileDialog::fileSelected, this, [this, wish](const QString& path) {
        QSettings().setValue(settings_ + QStringLiteral("/folder"), QFileInfo(path).absolutePath());
        run([this, wish, path] { return FileWork::begin(chosenPicture(), wish, path); });
    });
    dialog->open();
}

void PaperDialog::run(PaperRunner::Begin begin)
{
    keepAll();
    setWorking(true);
    runner_ = std::make_unique<PaperRunner>(
        family(), std::move(begin),
        [this](double part) { progress_->setValue(static_cast<int>(part * progressSteps)); },
        [this](const Outcome<Done>& outcome) { ended(outcome); });
}

void PaperDialog::setWorking(bool isWorking)
{
    choices_->setEnabled(!isWorking);
    for (QPushButton* const command : commands_)
        command->setEnabled(!isWorking);
    progress_->setValue(0);
    progress_->setVisible(isWorking);
    if (isWorking)
        buttons_->button(QDialogButtonBox::Cancel)->setFocus();
}

void PaperDialog::ended(const Outcome<Done>& outcome)
{
    runner_.reset();
    if (!outcome.failed()) {
        accept();
        return;
    }
    setWorking(false);
    refreshPicture();
    auto* const message =
        new QMessageBox(QMessageBox::Warning, windowTitle(), outcome.failure().message, QMessageBox::Ok, this);
    message->setAttribute(Qt::WA_DeleteOnClose);
    message->setTextFormat(Qt::PlainText);
    message->open();
}

void PaperDialog::reject()
{
    if (runner_) {
        runner_.reset();
        setWorking(false);
        refreshPicture();
        return;
    }
    // Nothing is to be heard of the family between here and the end of the dialog.
    changes_ = {};
    refresh_.stop();
    keepAll();
    QDialog::reject();
}

} // namespace lineara
