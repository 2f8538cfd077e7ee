#pragma once

#include <QString>
#include <QStringList>

namespace lineara {

/// The first of the languages, as in "de-AT", that the program speaks, as in "de". English, which needs no
/// translation, where it speaks none of them.
QString spokenLanguage(const QStringList& wanted);

/// Lets all texts of the program and of its toolkit appear in that language from now on. To be called once, before the
/// first window is made.
void speak(const QString& language);

} // namespace lineara
