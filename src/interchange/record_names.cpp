#include "record_names.h"

#include "gedcom_pointer.h"
#include "import_texts.h"
#include "imported_index.h"
#include "model/person.h"
#include "model/source_record.h"
#include "person_reading.h"

#include <QStringBuilder>

#include <initializer_list>
#include <utility>

namespace lineara {
namespace {

QString nameOfPerson(const SourceRecord& record, const GedcomTree& tree)
{
    const Person* const person = record.person();
    QString name = person ? person->name().value_or(QString()) : shownName(tree);
    return name.isEmpty() ? ImportTexts::tr("person without a name") : name;
}

/// What the first of the lines below says that says something.
QString firstSaid(const GedcomTree& tree, NodeIndex parent, std::initializer_list<std::string_view> tags)
{
    for (const std::string_view tag : tags) {
        const auto line = tree.child(parent, tag);
        QString text = line ? tree.text(*line).trimmed() : QString();
        if (!text.isEmpty())
            return text;
    }
    return {};
}

QString titleOfFirstFile(const GedcomTree& tree)
{
    const auto file = tree.child(0, "FILE");
    return file ? titleOfFile(tree, *file) : QString();
}

/// A text of the record itself is that of a note. What is said about a source or a picture is less than its title.
QString titleIn(const GedcomTree& tree)
{
    for (const QString& title : {tree.text(0).trimmed(), firstSaid(tree, 0, {"TITL", "NAME", "AUTH", "PUBL", "ABBR"}),
                                 titleOfFirstFile(tree), firstSaid(tree, 0, {"TEXT", "NOTE"})})
        if (!title.isEmpty())
            return title;
    return {};
}

/// "Anna, Bert", but the last.
QString allButLast(const QStringList& names)
{
    return names.first(names.size() - 1).join(QStringLiteral(", "));
}

} // namespace

QString titleOfFile(const GedcomTree& tree, NodeIndex file)
{
    QString title = firstSaid(tree, file, {"TITL"});
    return title.isEmpty() ? tree.text(file).trimmed() : title;
}

const QString& RecordNames::of(const SourceRecord& record)
{
    if (const auto known = names_.find(&record); known != names_.end())
        return known->second;
    QString name = read(record); // may ask for other names, and so is no part of the next line
    return names_.emplace(&record, std::move(name)).first->second;
}

QString RecordNames::read(const SourceRecord& record)
{
    const GedcomTree tree(readableRecord(record), index_.isVersionSeven());
    if (tree.size() == 0)
        return {};
    if (tree[0].line.tag == "INDI")
        return nameOfPerson(record, tree);
    if (tree[0].line.tag == "FAM")
        return ofFamily(tree);
    QString title = titleIn(tree);
    return title.isEmpty() ? titleOfPicture(tree) : title;
}

/// A source may be nothing but the picture of it.
QString RecordNames::titleOfPicture(const GedcomTree& tree) const
{
    const auto object = tree.child(0, "OBJE");
    if (!object || !leadsToARecord(tree[*object].line))
        return {};
    const SourceRecord* const picture = index_.target(tree[*object].line.value);
    const GedcomTree lines = picture ? GedcomTree(readableRecord(*picture), index_.isVersionSeven()) : GedcomTree();
    return lines.size() == 0 ? QString() : titleIn(lines);
}

QString RecordNames::valueOf(const GedcomTree& tree, NodeIndex line)
{
    QString text = tree.text(line);
    if (!tree[line].line.isPointer)
        return text;
    const QString told = valueOfPointer(tree[line].line.value);
    return text.isEmpty() ? told : QString(told % u'\n' % text);
}

QString RecordNames::valueOfPointer(std::string_view xref)
{
    if (xref == pointsAtNobody)
        return ImportTexts::tr("not in the file");
    const SourceRecord* const target = index_.target(xref);
    QString name = target ? of(*target) : QString();
    if (!name.isEmpty())
        return name;
    return u'@' % QString::fromUtf8(xref.data(), static_cast<qsizetype>(xref.size())) % u'@';
}

QStringList RecordNames::partnersIn(const GedcomTree& family, const SourceRecord* but)
{
    QStringList names;
    for (const NodeIndex index : family.children(0)) {
        const GedcomLine& line = family[index].line;
        if ((line.tag != "HUSB" && line.tag != "WIFE") || !leadsToARecord(line))
            continue;
        const SourceRecord* const partner = index_.target(line.value);
        if (partner && partner != but && readableRecord(*partner).tag == "INDI")
            names << of(*partner);
    }
    return names;
}

QString RecordNames::ofFamily(const GedcomTree& family)
{
    const QStringList parents = partnersIn(family, nullptr);
    if (parents.isEmpty())
        return ImportTexts::tr("Family of unknown parents");
    if (parents.size() == 1)
        return ImportTexts::tr("Family of %1").arg(parents.front());
    return ImportTexts::tr("Family of %1 and %2").arg(allButLast(parents), parents.back());
}

QString RecordNames::ofFamilyOf(const SourceRecord& partner, const GedcomTree& family)
{
    const QStringList others = partnersIn(family, &partner);
    if (others.isEmpty())
        return ImportTexts::tr("Family without a partner");
    if (others.size() == 1)
        return ImportTexts::tr("Family with %1").arg(others.front());
    return ImportTexts::tr("Family with %1 and %2").arg(allButLast(others), others.back());
}

} // namespace lineara
