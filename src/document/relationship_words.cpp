#include "relationship_words.h"

#include "kin_words.h"

#include <QCoreApplication>
#include <QStringList>

namespace lineara {

namespace {

struct RelationshipWords
{
    Q_DECLARE_TR_FUNCTIONS(RelationshipWords)
};

using kinship::Kinship;
using kinship::Relation;

QString bold(const QString& words)
{
    return QStringLiteral("<b>%1</b>").arg(words.toHtmlEscaped());
}

/// No value where there is no word that stands between two names.
QString mainWords(const Relation& relationship)
{
    switch (relationship.kinship) {
    case Kinship::Partners:
        return RelationshipWords::tr("partner");
    case Kinship::Blood:
        return bloodWords(*relationship.blood);
    case Kinship::ByMarriage:
        return inLawWords(*relationship.inLaw);
    default:
        return {};
    }
}

QString sentenceOf(const Relation& relationship, const engine::FamilyGraph& family, const QString& first,
                   const QString& second)
{
    switch (relationship.kinship) {
    case Kinship::None:
        return RelationshipWords::tr("%1 and %2 are not connected in this family").arg(second, first);
    case Kinship::Connected:
        return RelationshipWords::tr("%1 is connected with %2: %3")
            .arg(second, first, bold(chainWords(family, relationship.path)));
    default:
        return RelationshipWords::tr("%1 is %2 of %3").arg(second, bold(mainWords(relationship)), first);
    }
}

QString ancestorsOf(const Relation& relationship, const NameOf& nameOf)
{
    const auto& ancestors = relationship.blood->ancestors;
    if (ancestors.size() == 2)
        return RelationshipWords::tr("common ancestors are %1 and %2").arg(nameOf(ancestors[0]), nameOf(ancestors[1]));
    return RelationshipWords::tr("the common ancestor is %1").arg(nameOf(ancestors[0]));
}

QString withCapital(QString text)
{
    if (!text.isEmpty())
        text[0] = text[0].toUpper();
    return text;
}

QStringList detailsOf(const Relation& relationship, const NameOf& nameOf)
{
    QStringList details;
    if (relationship.kinship == Kinship::Connected)
        details += RelationshipWords::tr("%n step(s)", nullptr, static_cast<int>(relationship.path.size()) - 1);
    if (!relationship.blood)
        return details;
    if (relationship.kinship == Kinship::Partners)
        details += RelationshipWords::tr("also %1").arg(bloodWords(*relationship.blood));
    if (!relationship.blood->isDirect() && relationship.blood->steps() > 2)
        details += ancestorsOf(relationship, nameOf);
    if (relationship.inLaw)
        details += RelationshipWords::tr("also %1").arg(inLawWords(*relationship.inLaw));
    if (relationship.otherLines > 0)
        details +=
            RelationshipWords::tr("related by %n more line(s)", nullptr, static_cast<int>(relationship.otherLines));
    return details;
}

} // namespace

RelationshipText relationshipText(const Relation& relationship, const engine::FamilyGraph& family,
                                  kinship::PersonIndex first, kinship::PersonIndex second, const NameOf& nameOf)
{
    return {sentenceOf(relationship, family, nameOf(first).toHtmlEscaped(), nameOf(second).toHtmlEscaped()),
            withCapital(detailsOf(relationship, nameOf).join(QStringLiteral(" · ")))};
}

} // namespace lineara
