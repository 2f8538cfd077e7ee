#pragma once

#include "field_line.h"

#include <QPlainTextEdit>

#include <functional>
#include <memory>
#include <utility>

namespace lineara {

class MultiLineTextDelegate;

/// The notes: by its delegate Return breaks the line; Ctrl and Return settle, Tab goes on. What was not typed here
/// stays as it was, down to the kind of its line breaks.
class NotesField : public QPlainTextEdit
{
public:
    explicit NotesField(std::function<void(FieldEnd)> ended);

    /// Without a delegate, Return ends the editing.
    void setDelegate(std::shared_ptr<const MultiLineTextDelegate> delegate) { delegate_ = std::move(delegate); }
    const MultiLineTextDelegate* delegate() const { return delegate_.get(); }

    void showNotes(const QString& notes);
    /// The notes that were shown, with what was typed.
    QString notes() const;
    bool isModified() const;
    /// What was typed counts as settled, and what was taken back as forgotten.
    void settle();
    /// What was typed goes.
    void giveUp();

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    QString shown_; // as the record has it
    std::function<void(FieldEnd)> ended_;
    std::shared_ptr<const MultiLineTextDelegate> delegate_;
};

/// `text` after somebody changed what is shown of it to `edited`, where each kind of line break is shown as '\n'. What
/// lies before and behind the change stays exactly as it was.
QString withEdit(const QString& text, const QString& edited);

} // namespace lineara
