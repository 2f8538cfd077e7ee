#include "genealogy_output.h"

#include "interchange/gedcom_export.h"
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

Outcome<Done> saveGenealogy(const ObjectContext& family, const QString& path, bool asGedcom7)
{
    const GedcomFormat text = asGedcom7 ? GedcomFormat::Gedcom70 : GedcomFormat::Gedcom551;
    return exportGedcomFile(FamilyContent(family), path, isGedzipName(path) ? GedcomFormat::Gedzip : text, {});
}

} // namespace lineara::tool
