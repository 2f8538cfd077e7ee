#include "type_ahead.h"

#include <QApplication>
#include <QLineEdit>
#include <QPlainTextEdit>

#include <utility>

namespace lineara {

namespace {

bool isCommand(const QKeyEvent& key)
{
    return key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier) ||
           (key.key() >= Qt::Key_F1 && key.key() <= Qt::Key_F35);
}

bool isWalk(const QKeyEvent& key)
{
    return key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab;
}

/// The list and the canvas get the focus wherever a field closes.
bool isField(const QWidget& widget)
{
    return qobject_cast<const QLineEdit*>(&widget) || qobject_cast<const QPlainTextEdit*>(&widget);
}

} // namespace

void TypeAhead::hold()
{
    held_.emplace_back();
    qApp->installEventFilter(this);
}

void TypeAhead::releaseToField()
{
    for (const auto& key : takeNext()) {
        if (QWidget* const field = window_.focusWidget())
            QApplication::sendEvent(field, key.get());
    }
    goOn();
}

QString TypeAhead::releaseAsText()
{
    QString text;
    for (const auto& key : takeNext()) {
        if (key->key() == Qt::Key_Backspace)
            text.chop(1);
        else if (!key->text().isEmpty() && key->text().front().isPrint())
            text += key->text();
    }
    goOn();
    return text;
}

/// Nothing is held while it is given away.
TypeAhead::Keys TypeAhead::takeNext()
{
    stop();
    if (held_.empty())
        return {};
    Keys keys = std::move(held_.front());
    held_.pop_front();
    return keys;
}

void TypeAhead::goOn()
{
    if (isHolding())
        qApp->installEventFilter(this);
}

bool TypeAhead::eventFilter(QObject* watched, QEvent* event)
{
    const auto* const widget = qobject_cast<QWidget*>(watched);
    if (!widget || widget->window() != &window_)
        return false;
    if (event->type() == QEvent::MouseButtonPress || (event->type() == QEvent::FocusIn && isField(*widget)))
        stop();
    // A key would reach the menus before the widgets, unless the widget claims it beforehand.
    const bool isClaim = event->type() == QEvent::ShortcutOverride;
    if (!isClaim && event->type() != QEvent::KeyPress)
        return false;
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if (!isHeld(key))
        return false;
    if (isClaim)
        event->accept();
    else
        holdKey(key);
    return true;
}

/// Before anything is typed, the keyboard may still go elsewhere.
bool TypeAhead::isHeld(const QKeyEvent& key) const
{
    return !isCommand(key) && !(isWalk(key) && held_.back().empty());
}

void TypeAhead::holdKey(const QKeyEvent& key)
{
    if (key.key() == Qt::Key_Escape)
        held_.back().clear();
    else
        held_.back().emplace_back(key.clone());
}

void TypeAhead::stop()
{
    qApp->removeEventFilter(this);
}

} // namespace lineara
