#pragma once

#include <QLocale>
#include <QString>
#include <QUrl>

namespace lineara {

/// The sample family, beside the installed program or in the tree it was built in; empty if it is in neither.
QString sampleFamily();

/// The help page in the language of the locale, or else in English; empty if there is none.
QUrl helpPage(const QLocale& locale);

} // namespace lineara
