#pragma once

#include <QLineEdit>

#include <functional>

namespace lineara {

/// How what is typed into a field is settled.
enum class FieldEnd
{
    Return,
    Escape,
    Left ///< the keyboard went to another part of the program, or to another program
};

/// A field of one line. While what is typed into it is not settled, undo and redo are about the typing; otherwise they
/// are left to the window.
class FieldLine : public QLineEdit
{
public:
    explicit FieldLine(std::function<void(FieldEnd)> ended) : ended_(std::move(ended)) {}

    /// What was typed, in one line: line breaks that came by pasting are spaces, as they are shown.
    QString line() const;
    /// What was typed counts as settled; the cursor stays.
    void settle();
    /// Of what was typed and taken back, nothing can be redone any more.
    void forgetTyping();
    /// Shows another text, which counts as settled. One that is longer than the field can hold is only shown: the first
    /// key would cut it.
    void showText(const QString& shown);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    std::function<void(FieldEnd)> ended_;
};

/// Whether the key is one of the two that end the editing of a line.
bool isReturn(const QKeyEvent& key);

/// Whether the event asks which of a field and its window gets an undo or redo that the field can't do.
bool isHistoryOfWindow(const QEvent& event, bool fieldCanUndo, bool fieldCanRedo);

} // namespace lineara
