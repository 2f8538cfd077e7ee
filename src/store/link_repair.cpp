#include "family_links.h"
#include "link_walks.h"
#include "repair_notes.h"
#include "store_texts.h"

#include <algorithm>

namespace lineara::store {

namespace {

/// Lists that can be changed one by one, and the words to tell what was changed.
class LinkRepair
{
public:
    LinkRepair(const RawFamily& family, QStringList& repairs) : family_(family), repairs_(repairs) {}

    /// Leaves out links to oneself and second mentions.
    Lists<PersonIndex> withoutRepeats(const Lists<PersonIndex>& links, const QString& relationship)
    {
        Lists<PersonIndex> result;
        std::vector<std::size_t> marks(links.size());
        for (std::size_t person = 0; person < links.size(); ++person) {
            for (const auto other : links[person]) {
                if (other == person)
                    tell(person,
                         StoreTexts::tr("was listed among its own %1; that link is left out.").arg(relationship));
                else if (std::exchange(marks[other], person + 1) == person + 1)
                    tell(person, StoreTexts::tr("listed %1 twice among its %2; the second is left out.")
                                     .arg(name(other), relationship));
                else
                    result.add(other);
            }
            result.close();
        }
        return result;
    }

    /// `links` with all those at the end of its lists that only the other side knows.
    Lists<PersonIndex> completed(const Lists<PersonIndex>& links, const Lists<PersonIndex>& otherSide,
                                 const QString& relationship)
    {
        const auto expected = transposed(otherSide);
        Lists<PersonIndex> result;
        std::vector<std::size_t> marks(links.size());
        for (std::size_t person = 0; person < links.size(); ++person) {
            for (const auto other : links[person]) {
                marks[other] = person + 1;
                result.add(other);
            }
            for (const auto other : expected[person]) {
                if (marks[other] == person + 1)
                    continue;
                tell(person,
                     StoreTexts::tr("did not list %1 among its %2, though listed there; the link was completed.")
                         .arg(name(other), relationship));
                result.add(other);
            }
            result.close();
        }
        return result;
    }

    Lists<PersonIndex> withoutThirdParents(const Lists<PersonIndex>& parents)
    {
        constexpr std::size_t mostParents = 2;
        Lists<PersonIndex> result;
        for (std::size_t person = 0; person < parents.size(); ++person) {
            const auto all = parents[person];
            const auto kept = std::min(all.size(), mostParents);
            result.append(all.first(kept));
            for (const auto parent : all.subspan(kept))
                tell(person,
                     StoreTexts::tr("has two parents already; the link from %1 is left out.").arg(name(parent)));
        }
        return result;
    }

    /// Leaves out the closing links, given from the children's side.
    Lists<PersonIndex> withoutCycles(const Lists<PersonIndex>& children)
    {
        const auto closing = closingLinks(children);
        std::vector<std::pair<PersonIndex, PersonIndex>> sorted = closing;
        std::sort(sorted.begin(), sorted.end());
        for (const auto& [parent, child] : closing)
            tell(child, StoreTexts::tr("is an ancestor of %1 and can't be its child; that link is left out.")
                            .arg(name(parent)));
        return filtered(children, [&sorted](PersonIndex parent, PersonIndex child) {
            return !std::binary_search(sorted.begin(), sorted.end(), std::pair(parent, child));
        });
    }

    /// Those links of `links` that the other side has, in their own order.
    static Lists<PersonIndex> inCommon(const Lists<PersonIndex>& links, const Lists<PersonIndex>& otherSide)
    {
        const auto wanted = transposed(otherSide);
        return filtered(links, [&wanted](PersonIndex person, PersonIndex other) {
            const auto list = wanted[person];
            return std::binary_search(list.begin(), list.end(), other);
        });
    }

private:
    template<class Keep>
    static Lists<PersonIndex> filtered(const Lists<PersonIndex>& links, Keep keep)
    {
        Lists<PersonIndex> result;
        for (std::size_t person = 0; person < links.size(); ++person) {
            for (const auto other : links[person]) {
                if (keep(static_cast<PersonIndex>(person), other))
                    result.add(other);
            }
            result.close();
        }
        return result;
    }

    QString name(std::size_t person) const { return called(family_.persons[person]); }
    void tell(std::size_t person, const QString& what) { tellRepair(repairs_, name(person) + u' ' + what); }

    const RawFamily& family_;
    QStringList& repairs_;
};

} // namespace

FamilyLinks mended(const FamilyLinks& links, const RawFamily& family, QStringList& repairs)
{
    LinkRepair repair(family, repairs);
    FamilyLinks result;
    const auto parents = repair.withoutRepeats(links.parents, u"parents"_qs);
    const auto children = repair.withoutRepeats(links.children, u"children"_qs);
    const auto partners = repair.withoutRepeats(links.partners, u"partners"_qs);

    result.partners = repair.completed(partners, partners, u"partners"_qs);
    result.parents = repair.withoutThirdParents(repair.completed(parents, children, u"parents"_qs));
    result.children = LinkRepair::inCommon(repair.completed(children, parents, u"children"_qs), result.parents);
    result.children = repair.withoutCycles(result.children);
    result.parents = LinkRepair::inCommon(result.parents, result.children);
    return result;
}

} // namespace lineara::store
