#include "field_line.h"

#include <QFocusEvent>
#include <QKeyEvent>

namespace lineara {

bool isReturn(const QKeyEvent& key)
{
    return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

bool isHistoryOfWindow(const QEvent& event, bool fieldCanUndo, bool fieldCanRedo)
{
    if (event.type() != QEvent::ShortcutOverride)
        return false;
    const auto& key = static_cast<const QKeyEvent&>(event);
    return (key.matches(QKeySequence::Undo) && !fieldCanUndo) || (key.matches(QKeySequence::Redo) && !fieldCanRedo);
}

QString FieldLine::line() const
{
    QString line = text();
    line.replace(QStringLiteral("\r\n"), QStringLiteral(" "));
    for (const QChar lineBreak :
         {QChar(u'\n'), QChar(u'\r'), QChar(QChar::LineSeparator), QChar(QChar::ParagraphSeparator)})
        line.replace(lineBreak, QChar(u' '));
    return line;
}

void FieldLine::settle()
{
    const int cursor = cursorPosition();
    // Setting a text is what empties the field's own history.
    setText(line());
    setCursorPosition(cursor);
}

void FieldLine::forgetTyping()
{
    // Without a history there is no reason to take a selection away.
    if (isModified() || (!isUndoAvailable() && !isRedoAvailable()))
        return;
    const int cursor = cursorPosition();
    setText(text());
    setCursorPosition(cursor);
}

void FieldLine::showText(const QString& shown)
{
    if (shown == text() && !isModified())
        return;
    setReadOnly(shown.size() > maxLength());
    setText(shown);
    setCursorPosition(0);
}

bool FieldLine::event(QEvent* event)
{
    if (isHistoryOfWindow(*event, isModified() && isUndoAvailable(), isRedoAvailable())) {
        event->ignore();
        return true;
    }
    return QLineEdit::event(event);
}

void FieldLine::keyPressEvent(QKeyEvent* event)
{
    if (isReturn(*event))
        ended_(FieldEnd::Return);
    else if (event->key() == Qt::Key_Escape)
        ended_(FieldEnd::Escape);
    else
        QLineEdit::keyPressEvent(event);
}

void FieldLine::focusOutEvent(QFocusEvent* event)
{
    QLineEdit::focusOutEvent(event);
    // A menu that opens over the field is still about the field.
    if (event->reason() != Qt::PopupFocusReason)
        ended_(FieldEnd::Left);
}

} // namespace lineara
