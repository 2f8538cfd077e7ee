#pragma once

class QPlainTextEdit;
class QString;

namespace lineara {

/// Has a field break its lines anywhere while a word in it is so long that to look for better places would freeze it,
/// and as it did before while there is none. The field may be edited and undone as ever; showText() fills it.
void breakLongWords(QPlainTextEdit& field);

/// Shows a text in such a field, in place of what is there. (setPlainText() would lay it out before anybody can tell
/// how its lines are to be broken.)
void showText(QPlainTextEdit& field, const QString& text);

} // namespace lineara
