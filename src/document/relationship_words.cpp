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
using kinship::PersonIndex;
using kinship::Relation;
using kinship::Sex;

QString bold(const QString& words)
{
    return QStringLiteral("<b>%1</b>").arg(words.toHtmlEscaped());
}

/// Tells what the second of two persons is to the first.
class Telling
{
public:
    Telling(const Relation& relationship, const ToldFamily& family, PersonIndex first, PersonIndex second)
        : relationship_(relationship), family_(family), first_(first), second_(second)
    {}

    QString sentence() const
    {
        const QString first = family_.nameOf(first_).toHtmlEscaped();
        const QString second = family_.nameOf(second_).toHtmlEscaped();
        switch (relationship_.kinship) {
        case Kinship::None:
            return RelationshipWords::tr("%1 and %2 are not connected in this family").arg(second, first);
        case Kinship::Connected:
            return RelationshipWords::tr("%1 is connected with %2: %3")
                .arg(second, first, bold(chainWords(family_.graph, family_.sexes, relationship_.path)));
        default:
            return RelationshipWords::tr("%1 is %2 of %3").arg(second, bold(mainWords()), first);
        }
    }

    QStringList details() const
    {
        QStringList details;
        if (relationship_.kinship == Kinship::Connected)
            details += RelationshipWords::tr("%n step(s)", nullptr, static_cast<int>(relationship_.path.size()) - 1);
        if (!relationship_.blood)
            return details;
        if (relationship_.kinship == Kinship::Partners)
            details += RelationshipWords::tr("also %1").arg(ofBlood());
        if (!relationship_.blood->isDirect() && relationship_.blood->steps() > 2)
            details += commonAncestors();
        if (relationship_.inLaw)
            details += RelationshipWords::tr("also %1").arg(byMarriage());
        if (relationship_.otherLines > 0)
            details += RelationshipWords::tr("related by %n more line(s)", nullptr,
                                             static_cast<int>(relationship_.otherLines));
        return details;
    }

private:
    Sex sexOf(PersonIndex person) const { return kinship::sexOf(family_.sexes, person); }

    /// Nothing where there is no word that stands between two names.
    QString mainWords() const
    {
        switch (relationship_.kinship) {
        case Kinship::Partners:
            return partnerWords(sexOf(second_));
        case Kinship::Blood:
            return ofBlood();
        case Kinship::ByMarriage:
            return byMarriage();
        default:
            return {};
        }
    }

    QString ofBlood() const { return bloodWords(*relationship_.blood, sexOf(second_)); }

    QString byMarriage() const { return inLawWords(*relationship_.inLaw, sexOf(second_), sexOfTheOneBetween()); }

    /// The path tells who that is, unless it is that of a nearer relationship.
    Sex sexOfTheOneBetween() const
    {
        const auto& path = relationship_.path;
        if (relationship_.kinship != Kinship::ByMarriage)
            return Sex::Unknown;
        return sexOf(relationship_.inLaw->marriage == kinship::Marriage::OfFirst ? path[1] : path[path.size() - 2]);
    }

    QString commonAncestors() const
    {
        const auto& ancestors = relationship_.blood->ancestors;
        if (ancestors.size() == 2)
            return RelationshipWords::tr("common ancestors are %1 and %2")
                .arg(family_.nameOf(ancestors[0]), family_.nameOf(ancestors[1]));
        return RelationshipWords::tr("the common ancestor is %1").arg(family_.nameOf(ancestors[0]));
    }

    const Relation& relationship_;
    const ToldFamily& family_;
    PersonIndex first_;
    PersonIndex second_;
};

QString withCapital(QString text)
{
    if (!text.isEmpty())
        text[0] = text[0].toUpper();
    return text;
}

} // namespace

RelationshipText relationshipText(const Relation& relationship, const ToldFamily& family, PersonIndex first,
                                  PersonIndex second)
{
    const Telling telling(relationship, family, first, second);
    return {telling.sentence(), withCapital(telling.details().join(QStringLiteral(" · ")))};
}

} // namespace lineara
