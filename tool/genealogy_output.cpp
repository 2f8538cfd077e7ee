#include "genealogy_output.h"

#include "interchange/gedcom_export.h"
#include "messages.h"
#include "store/family_content.h"

namespace lineara::tool {

namespace {

bool isGedzipName(const QString& name)
{
    return name.endsWith(u".gdz"_qs, Qt::CaseInsensitive);
}

} // namespace

bool isGenealogyName(const QString& name)
{
    return isGedzipName(name) || name.endsWith(u".ged"_qs, Qt::CaseInsensitive);
}

Outcome<Done> saveGenealogy(const ObjectContext& family, const QString& path, const GenealogyOptions& options)
{
    const GedcomFormat text = options.asGedcom7 ? GedcomFormat::Gedcom70 : GedcomFormat::Gedcom551;
    const auto exported =
        exportGedcomFile(FamilyContent(family), path, isGedzipName(path) ? GedcomFormat::Gedzip : text, {});
    if (exported.failed())
        return exported.failure();
    const QString told = options.tellNotes ? exportSummary(exported.value()) : exportSums(exported.value());
    for (const QString& line : told.split(u'\n', Qt::SkipEmptyParts))
        tell(line);
    return Done{};
}

} // namespace lineara::tool
