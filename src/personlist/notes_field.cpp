#include "notes_field.h"

#include "multi_line_text_delegate.h"
#include "personlist/long_words.h"

#include <QKeyEvent>
#include <QTextDocument>

#include <algorithm>
#include <utility>
#include <vector>

namespace lineara {

namespace {

bool isLineBreak(QChar letter)
{
    return letter == u'\n' || letter == u'\r' || letter == QChar::LineSeparator || letter == QChar::ParagraphSeparator;
}

/// What is shown of a text, and where in the text each letter of it begins; a last entry marks the end.
struct ShownText
{
    QString letters;
    std::vector<qsizetype> begins;
};

ShownText shownOf(const QString& text)
{
    ShownText shown;
    for (qsizetype at = 0; at < text.size(); ++at) {
        shown.begins.push_back(at);
        shown.letters += isLineBreak(text[at]) ? QChar(u'\n') : text[at];
        if (text[at] == u'\r' && at + 1 < text.size() && text[at + 1] == u'\n')
            ++at;
    }
    shown.begins.push_back(text.size());
    return shown;
}

} // namespace

QString withEdit(const QString& text, const QString& edited)
{
    const ShownText shown = shownOf(text);
    const QString& before = shown.letters;
    const auto [differs, differsNow] = std::ranges::mismatch(before, edited);
    const qsizetype head = differs - before.begin();
    const qsizetype most = std::min(before.size(), edited.size()) - head;
    qsizetype tail = 0;
    while (tail < most && before[before.size() - 1 - tail] == edited[edited.size() - 1 - tail])
        ++tail;
    const auto begin = [&](qsizetype letter) { return shown.begins[static_cast<std::size_t>(letter)]; };
    return text.first(begin(head)) + edited.mid(head, edited.size() - head - tail) +
           text.sliced(begin(before.size() - tail));
}

NotesField::NotesField(std::function<void(FieldEnd)> ended) : ended_(std::move(ended))
{
    setTabChangesFocus(true);
    breakLongWords(*this);
}

void NotesField::showNotes(const QString& notes)
{
    if (notes == shown_ && !isModified())
        return;
    shown_ = notes;
    giveUp();
}

QString NotesField::notes() const
{
    if (!isModified())
        return shown_;
    // The plain text would turn no-break spaces into spaces.
    QString edited = document()->toRawText();
    std::replace_if(edited.begin(), edited.end(), isLineBreak, QChar(u'\n'));
    return withEdit(shown_, edited);
}

bool NotesField::isModified() const
{
    return document()->isModified();
}

void NotesField::settle()
{
    shown_ = notes();
    // Later steps of the family may be undone and redone: the field's own history would get between them.
    document()->clearUndoRedoStacks();
    document()->setModified(false);
}

void NotesField::giveUp()
{
    showText(*this, shownOf(shown_).letters);
    document()->setModified(false);
}

bool NotesField::event(QEvent* event)
{
    if (isHistoryOfWindow(*event, isModified() && document()->isUndoAvailable(), document()->isRedoAvailable())) {
        event->ignore();
        return true;
    }
    return QPlainTextEdit::event(event);
}

void NotesField::keyPressEvent(QKeyEvent* event)
{
    if (delegate_ && delegate_->takeKey(*this, *event))
        return;
    if (isReturn(*event))
        ended_(FieldEnd::Return);
    else if (event->key() == Qt::Key_Escape)
        ended_(FieldEnd::Escape);
    else
        QPlainTextEdit::keyPressEvent(event);
}

void NotesField::focusOutEvent(QFocusEvent* event)
{
    QPlainTextEdit::focusOutEvent(event);
    // A menu that opens over the field is still about the field.
    if (event->reason() != Qt::PopupFocusReason)
        ended_(FieldEnd::Left);
}

} // namespace lineara
