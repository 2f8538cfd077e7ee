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

/// Empty if the person has none.
QString nameOfPerson(const SourceRecord& record, bool isVersionSeven)
{
    const Person* const person = record.person();
    return person ? person->name().value_or(QString()) : shownName(GedcomTree(readableRecord(record), isVersionSeven));
}

/// In the case that the language asks for after "with" and "of".
QString nameInHeading(const SourceRecord& record, bool isVersionSeven)
{
    const QString name = nameOfPerson(record, isVersionSeven);
    return name.isEmpty() ? ImportTexts::tr("a person without a name", "in “Family with %1” and “Family of %1”") : name;
}

/// Of records that say nothing; empty if their tag is not one of the standard.
QString thatNothingIsSaid(std::string_view tag)
{
    if (tag == "SOUR")
        return ImportTexts::tr("Source without a title");
    if (tag == "NOTE" || tag == "SNOTE")
        return ImportTexts::tr("Note without a text");
    if (tag == "OBJE")
        return ImportTexts::tr("Picture or recording without a file");
    if (tag == "REPO")
        return ImportTexts::tr("Repository without a name");
    return tag == "SUBM" ? ImportTexts::tr("Submitter without a name") : QString();
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
    const std::string_view tag = tree[0].line.tag;
    if (tag == "FAM")
        return ofFamily(record, tree);
    if (tag == "INDI") {
        const QString name = nameOfPerson(record, index_.isVersionSeven());
        return name.isEmpty() ? ImportTexts::tr("a person without a name") : name;
    }
    for (const QString& title : {titleIn(tree), titleBehind(tree)})
        if (!title.isEmpty())
            return title;
    return thatNothingIsSaid(tag);
}

/// A source may be nothing but the picture of it, or what a library has, and a note nothing but its source.
QString RecordNames::titleBehind(const GedcomTree& tree) const
{
    for (const std::string_view tag : {"OBJE", "SOUR", "REPO", "NOTE", "SNOTE"}) {
        const auto pointer = tree.child(0, tag);
        if (!pointer || !leadsToARecord(tree[*pointer].line))
            continue;
        const SourceRecord* const behind = index_.target(tree[*pointer].line.value);
        const GedcomTree lines = behind ? GedcomTree(readableRecord(*behind), index_.isVersionSeven()) : GedcomTree();
        QString title = lines.size() == 0 ? QString() : titleIn(lines);
        if (!title.isEmpty())
            return title;
    }
    return {};
}

QString RecordNames::valueOf(const GedcomTree& tree, NodeIndex line)
{
    QString text = tree.text(line);
    if (!tree[line].line.isPointer)
        return text;
    const QString told = valueOfPointer(tree[line].line.value);
    return text.isEmpty() ? told : QString(told % u'\n' % text);
}

QString RecordNames::valueOf(const GedcomLine& line)
{
    if (line.isPointer)
        return valueOfPointer(line.value);
    return QString::fromUtf8(line.value.data(), static_cast<qsizetype>(line.value.size()));
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

RecordNames::Partners RecordNames::partnersIn(const SourceRecord& family, const GedcomTree& tree,
                                              const SourceRecord* but) const
{
    Partners partners;
    for (const NodeIndex index : tree.children(0)) {
        const GedcomLine& line = tree[index].line;
        if (line.tag != "HUSB" && line.tag != "WIFE")
            continue;
        const SourceRecord* const partner = leadsToARecord(line) ? index_.target(line.value) : nullptr;
        if (!partner || readableRecord(*partner).tag != "INDI")
            partners.isSomebodyUnknown = partners.isSomebodyUnknown || isUnknown(family, line);
        else if (partner != but)
            partners.names << nameInHeading(*partner, index_.isVersionSeven());
    }
    return partners;
}

/// Who was removed is no member any more.
bool RecordNames::isUnknown(const SourceRecord& family, const GedcomLine& member) const
{
    return !member.value.empty() && !index_.isMissed(member, vainPointersIn(family));
}

QString RecordNames::ofFamily(const SourceRecord& family, const GedcomTree& tree) const
{
    const QStringList parents = partnersIn(family, tree, nullptr).names;
    if (parents.isEmpty())
        return ImportTexts::tr("Family of unknown parents");
    if (parents.size() == 1)
        return ImportTexts::tr("Family of %1").arg(parents.front());
    return ImportTexts::tr("Family of %1 and %2").arg(allButLast(parents), parents.back());
}

QString RecordNames::ofFamilyOf(const SourceRecord& partner, const SourceRecord& family, const GedcomTree& tree) const
{
    const auto [others, isSomebodyUnknown] = partnersIn(family, tree, &partner);
    if (others.isEmpty())
        return isSomebodyUnknown ? ImportTexts::tr("Family with an unknown partner")
                                 : ImportTexts::tr("Family without a partner");
    if (others.size() == 1)
        return ImportTexts::tr("Family with %1").arg(others.front());
    return ImportTexts::tr("Family with %1 and %2").arg(allButLast(others), others.back());
}

} // namespace lineara
