#include "multi_line_text_delegate.h"

#include "field_line.h"

#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QTextCursor>

namespace lineara {

namespace {

std::shared_ptr<const MultiLineTextDelegate>& current()
{
    static auto delegate = std::make_shared<const MultiLineTextDelegate>();
    return delegate;
}

} // namespace

std::shared_ptr<const MultiLineTextDelegate> MultiLineTextDelegate::shared()
{
    return current();
}

void MultiLineTextDelegate::renewShared()
{
    current() = std::make_shared<const MultiLineTextDelegate>();
}

bool MultiLineTextDelegate::takeKey(QPlainTextEdit& field, const QKeyEvent& key) const
{
    if (!isReturn(key) || key.modifiers().testFlag(Qt::ControlModifier))
        return false;
    field.textCursor().insertBlock();
    field.ensureCursorVisible();
    return true;
}

} // namespace lineara
