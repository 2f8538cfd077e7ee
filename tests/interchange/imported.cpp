#include "imported.h"

#include <stdexcept>

namespace lineara {

ImportedFamily imported(const QByteArray& text)
{
    auto family = importGedcom(text, QStringLiteral("test.ged"));
    if (family.failed())
        throw std::runtime_error(family.failure().message.toStdString());
    return std::move(family.value());
}

std::string failureOf(const QByteArray& bytes)
{
    const auto family = importGedcom(bytes, QStringLiteral("test.ged"));
    return family.failed() ? family.failure().message.toStdString() : "(imported)";
}

const OrderedSet<Person*>& membersOf(const ImportedFamily& family)
{
    return family.context->allPools().at(0)->persons();
}

Person& member(const ImportedFamily& family, std::size_t position)
{
    return *membersOf(family)[position];
}

std::string names(const OrderedSet<Person*>& persons)
{
    QStringList names;
    for (const Person* person : persons)
        names << person->name().value_or(QStringLiteral("?"));
    return names.join(u' ').toStdString();
}

std::string notesOf(const ImportedFamily& family)
{
    return family.report.notes.join(u'\n').toStdString();
}

std::string keptOf(const ImportedFamily& family)
{
    QStringList kept;
    for (const auto& [path, lines, firstLine] : family.report.kept)
        kept << QStringLiteral("%1 %2").arg(path).arg(lines);
    return kept.join(QStringLiteral(", ")).toStdString();
}

} // namespace lineara
