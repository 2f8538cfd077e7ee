// export_genealogy IN.ged OUT.ged [5.5.1 | 7.0 | gdz]: imports a genealogy and exports it as it is.

#include "interchange/gedcom_export.h"
#include "interchange/gedcom_import.h"
#include "store/family_content.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <cstdio>

int main(int argc, char** argv)
{
    using namespace lineara;
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 3)
        return 2;
    const auto family = importGedcomFile(arguments[1]);
    if (family.failed())
        return 1;
    const QString wanted = arguments.value(3);
    const auto format = wanted == u"gdz"   ? GedcomFormat::Gedzip
                        : wanted == u"7.0" ? GedcomFormat::Gedcom70
                                           : GedcomFormat::Gedcom551;
    const FamilyContent content(*family.value().context);
    QElapsedTimer timer;
    timer.start();
    const auto done = exportGedcomFile(content, arguments[2], format);
    std::printf("%zu persons in %lld ms\n", content.persons().size(), static_cast<long long>(timer.elapsed()));
    return done.failed() ? 1 : 0;
}
