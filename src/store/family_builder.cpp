#include "family_builder.h"

#include "family_links.h"
#include "file_bytes.h"
#include "membership.h"
#include "model/context_loader.h"
#include "place_repair.h"
#include "store_texts.h"

#include <algorithm>

namespace lineara::store {

namespace {

/// Fills the loader from a family whose references are resolved.
class FamilyBuilder
{
public:
    FamilyBuilder(RawFamily& raw, Progress progress)
        : raw_(raw), progress_(std::move(progress)),
          loader_(raw.uuid, raw.nextNumber,
                  raw.persons.size() + raw.pools.size() + raw.pics.size() + raw.sources.size())
    {}

    /// An unfinished family if the progress is stopped meanwhile.
    std::unique_ptr<ObjectContext> build(const FamilyLinks& links, const Membership& membership)
    {
        // Pools come first, as in files, so that the numbers mostly ascend.
        const auto pools = addPools();
        if (!addPersons() || !link(links))
            return loader_.finish();
        for (std::size_t i = 0; i < pools.size(); ++i)
            loader_.setMembers(*pools[i], personsAt(membership.members[i]));
        addPics(membership.pics);
        addSources(membership.sources, membership.sourcesLeftOut);
        loader_.setUnknownObjects(std::move(raw_.unknownObjects));
        loader_.setUnknownInfo(std::move(raw_.unknownInfo));
        return loader_.finish();
    }

private:
    /// False if stopped.
    bool addPersons()
    {
        persons_.reserve(raw_.persons.size());
        for (auto& person : raw_.persons) {
            if (!goesOn(persons_.size()))
                return false;
            persons_.push_back(&loader_.addPerson(RecordId{person.number}, std::move(person.values)));
        }
        for (auto& [person, unknown] : raw_.unknownOfPersons)
            loader_.setUnknown(*persons_[person], std::move(unknown));
        return true;
    }

    std::vector<Person*> personsAt(std::span<const PersonIndex> indices) const
    {
        std::vector<Person*> result;
        result.reserve(indices.size());
        for (const auto index : indices)
            result.push_back(persons_[index]);
        return result;
    }

    /// False if stopped.
    bool link(const FamilyLinks& links)
    {
        for (std::size_t i = 0; i < persons_.size(); ++i) {
            if (!goesOn(persons_.size() + i))
                return false;
            if (!links.parents[i].empty())
                loader_.setParents(*persons_[i], personsAt(links.parents[i]));
            if (!links.children[i].empty())
                loader_.setChildren(*persons_[i], personsAt(links.children[i]));
            if (!links.partners[i].empty())
                loader_.setPartners(*persons_[i], personsAt(links.partners[i]));
        }
        return true;
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

    void addSources(const std::vector<std::uint32_t>& sourceOf, const std::vector<std::size_t>& leftOut)
    {
        std::vector<SourceRecord*> sources(raw_.sources.size());
        for (std::size_t i = 0; i < sources.size(); ++i) {
            if (std::binary_search(leftOut.begin(), leftOut.end(), i))
                continue;
            auto& source = raw_.sources[i];
            sources[i] = &loader_.addSource(RecordId{source.number}, std::move(source.origin), std::move(source.text));
            sources[i]->setTakenPicture(std::move(source.takenPicture));
        }
        for (std::size_t i = 0; i < sourceOf.size(); ++i) {
            if (sourceOf[i] != 0)
                loader_.setSource(*persons_[i], *sources[sourceOf[i] - 1]);
        }
        for (auto& [source, unknown] : raw_.unknownOfSources) {
            if (sources[source])
                loader_.setUnknown(*sources[source], std::move(unknown));
        }
    }

    /// Every person is visited twice.
    bool goesOn(std::size_t visits) const { return progress_.goesOn(visits, 2 * raw_.persons.size()); }

    RawFamily& raw_;
    Progress progress_;
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
        repairs += StoreTexts::tr("The next object number was in use already; it is %1 now.").arg(raw.nextNumber);
}

} // namespace

Outcome<LoadedFamily> buildFamily(RawFamily raw, QStringList repairs, const Progress& progress)
{
    constexpr double linksPart = 0.3;
    const IdIndex index(raw);
    if (index.duplicate())
        return Failure{StoreTexts::tr("object z%1 is there twice.").arg(*index.duplicate())};
    settleNextNumber(raw, index.highest(), repairs);
    leaveOutAbsurdPlaces(raw, repairs);
    auto links = resolveLinks(raw, index);
    if (links.failed())
        return links.failure();
    if (!progress.goesOn(linksPart / 3))
        return stoppedReading();
    if (!areSound(links.value()))
        links = mended(links.value(), raw, repairs);
    if (!progress.goesOn(2 * linksPart / 3))
        return stoppedReading();
    auto membership = resolveMembership(raw, index, repairs);
    if (membership.failed())
        return membership.failure();
    auto context = FamilyBuilder(raw, progress.stage(linksPart, 1)).build(links.value(), membership.value());
    if (!progress.goesOn(1))
        return stoppedReading();
    return LoadedFamily{std::move(context), std::move(repairs)};
}

} // namespace lineara::store
