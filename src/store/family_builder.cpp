#include "family_builder.h"

#include "family_links.h"
#include "membership.h"
#include "model/context_loader.h"

namespace lineara::store {

namespace {

/// Fills the loader from a family whose references are resolved.
class FamilyBuilder
{
public:
    explicit FamilyBuilder(RawFamily& raw)
        : raw_(raw), loader_(raw.uuid, raw.nextNumber, raw.persons.size() + raw.pools.size() + raw.pics.size())
    {}

    std::unique_ptr<ObjectContext> build(const FamilyLinks& links, const Membership& membership)
    {
        // Pools come first, as in files, so that the numbers mostly ascend.
        const auto pools = addPools();
        addPersons();
        link(links);
        for (std::size_t i = 0; i < pools.size(); ++i)
            loader_.setMembers(*pools[i], personsAt(membership.members[i]));
        addPics(membership.pics);
        loader_.setUnknownObjects(std::move(raw_.unknownObjects));
        loader_.setUnknownInfo(std::move(raw_.unknownInfo));
        return loader_.finish();
    }

private:
    void addPersons()
    {
        persons_.reserve(raw_.persons.size());
        for (auto& person : raw_.persons)
            persons_.push_back(&loader_.addPerson(RecordId{person.number}, std::move(person.values)));
        for (auto& [person, unknown] : raw_.unknownOfPersons)
            loader_.setUnknown(*persons_[person], std::move(unknown));
    }

    std::vector<Person*> personsAt(std::span<const PersonIndex> indices) const
    {
        std::vector<Person*> result;
        result.reserve(indices.size());
        for (const auto index : indices)
            result.push_back(persons_[index]);
        return result;
    }

    void link(const FamilyLinks& links)
    {
        for (std::size_t i = 0; i < persons_.size(); ++i) {
            if (!links.parents[i].empty())
                loader_.setParents(*persons_[i], personsAt(links.parents[i]));
            if (!links.children[i].empty())
                loader_.setChildren(*persons_[i], personsAt(links.children[i]));
            if (!links.partners[i].empty())
                loader_.setPartners(*persons_[i], personsAt(links.partners[i]));
        }
    }

    std::vector<Pool*> addPools()
    {
        std::vector<Pool*> pools;
        pools.reserve(raw_.pools.size());
        for (const auto number : raw_.pools)
            pools.push_back(&loader_.addPool(RecordId{number}));
        for (auto& [pool, unknown] : raw_.unknownOfPools)
            loader_.setUnknown(*pools[pool], std::move(unknown));
        return pools;
    }

    void addPics(const std::vector<std::uint32_t>& picOf)
    {
        std::vector<Pic*> pics;
        pics.reserve(raw_.pics.size());
        for (auto& pic : raw_.pics)
            pics.push_back(&loader_.addPic(RecordId{pic.number}, std::move(pic.data)));
        for (std::size_t i = 0; i < picOf.size(); ++i) {
            if (picOf[i] != 0)
                loader_.setPic(*persons_[i], *pics[picOf[i] - 1]);
        }
        for (auto& [pic, unknown] : raw_.unknownOfPics)
            loader_.setUnknown(*pics[pic], std::move(unknown));
    }

    RawFamily& raw_;
    ContextLoader loader_;
    std::vector<Person*> persons_;
};

Outcome<FamilyLinks> resolveLinks(const RawFamily& raw, const IdIndex& index)
{
    auto parents = resolve(raw.parents, raw, index, u"parents"_qs);
    if (parents.failed())
        return parents.failure();
    auto children = resolve(raw.children, raw, index, u"children"_qs);
    if (children.failed())
        return children.failure();
    auto partners = resolve(raw.partners, raw, index, u"partners"_qs);
    if (partners.failed())
        return partners.failure();
    return FamilyLinks{std::move(parents.value()), std::move(children.value()), std::move(partners.value())};
}

void settleNextNumber(RawFamily& raw, Number highest, QStringList& repairs)
{
    constexpr Number firstNumber = 101;
    const bool wasGiven = raw.nextNumber != 0;
    if (wasGiven && raw.nextNumber > highest)
        return;
    raw.nextNumber = std::max(firstNumber, highest + 1);
    if (wasGiven)
        repairs += u"The next object number was in use already; it is %1 now."_qs.arg(raw.nextNumber);
}

} // namespace

Outcome<LoadedFamily> buildFamily(RawFamily raw, QStringList repairs)
{
    const IdIndex index(raw);
    if (index.duplicate())
        return Failure{u"object z%1 is there twice."_qs.arg(*index.duplicate())};
    settleNextNumber(raw, index.highest(), repairs);
    auto links = resolveLinks(raw, index);
    if (links.failed())
        return links.failure();
    if (!areSound(links.value()))
        links = mended(links.value(), raw, repairs);
    auto membership = resolveMembership(raw, index, repairs);
    if (membership.failed())
        return membership.failure();
    auto context = FamilyBuilder(raw).build(links.value(), membership.value());
    return LoadedFamily{std::move(context), std::move(repairs)};
}

} // namespace lineara::store
