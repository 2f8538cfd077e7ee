#pragma once

#include "paper/paper_dialogs.h"
#include "paper/paper_picture.h"
#include "paper/picture_export.h"
#include "paper_work.h"

#include <QDialog>
#include <QTimer>

#include <memory>
#include <optional>

class QCheckBox;
class QComboBox;
class QDialogButtonBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QSettings;

namespace lineara {

class PaperPreview;

/// What the dialogs have in common: part, title and footer, a preview that follows every choice and every change of the
/// family, and work with a progress bar, which Cancel ends. The last choices are remembered.
class PaperDialog : public QDialog
{
public:
    ~PaperDialog() override;

    /// Stops what is being done, if anything is; closes the dialog otherwise.
    void reject() override;

protected:
    /// `settings` is the group in which the choices are kept.
    PaperDialog(QWidget* parent, PaperSubject subject, QString settings);

    QFormLayout& form() { return *form_; }
    PaperPreview& preview() { return *preview_; }
    QPushButton* addButton(const QString& text, const QString& name);
    const PaperPicture& picture() const { return *picture_; }

    /// To be called at the end of construction: shows what was chosen last time.
    void begin();
    /// To be called when a choice other than part and texts has changed.
    void choicesChanged();

    virtual void restore(const QSettings& settings) = 0;
    virtual void keep(QSettings& settings) const = 0;
    /// Shows the choices in the preview; says in a sentence what will come out, or why nothing can.
    virtual Outcome<QString> show() = 0;

    /// Asks for a file and makes it.
    void askForFile(const PictureWish& wish);
    /// Does a work and closes the dialog at its end, or tells why that failed.
    void run(PaperRunner::Begin begin);
    /// The picture as it is chosen now, for a work to keep.
    std::unique_ptr<PaperPicture> chosenPicture() const;

private:
    void addPartAndTexts();
    void refreshPicture();
    void restoreAll();
    void keepAll() const;
    void ended(const Outcome<Done>& outcome);
    void setWorking(bool isWorking);
    ObjectContext& family() const;

    PaperSubject subject_;
    QString settings_;
    QWidget* choices_;
    QFormLayout* form_;
    PaperPreview* preview_;
    QLabel* summary_;
    QProgressBar* progress_;
    QDialogButtonBox* buttons_;
    std::vector<QPushButton*> commands_;
    QComboBox* part_ = nullptr;
    QCheckBox* hasTitle_ = nullptr;
    QLineEdit* title_ = nullptr;
    QCheckBox* hasFooter_ = nullptr;
    QLineEdit* footer_ = nullptr;
    std::unique_ptr<PaperPicture> picture_;
    std::unique_ptr<PaperRunner> runner_;
    QTimer refresh_; // after changes that may come many at a time
    Subscription changes_;
};

} // namespace lineara
