#include "made_family.h"

#include "model/journal.h"
#include "model/person.h"
#include "model/pool.h"

#include <algorithm>
#include <random>
#include <vector>

namespace lineara {

namespace {

/// Links the persons of a family, who stand row by row from the oldest.
class Links
{
public:
    Links(std::vector<Person*> persons, std::size_t rows, unsigned straying)
        : persons_(std::move(persons)), width_(persons_.size() / rows), straying_(straying)
    {}

    void make()
    {
        for (std::size_t at = 0; at < persons_.size(); ++at) {
            if (at % 2 == 1)
                marry(at);
            if (at >= width_ && at % 4 != 3)
                descend(at);
        }
    }

private:
    void marry(std::size_t at)
    {
        const bool intoAnotherRow = random_() % 1'000 < straying_ && at >= 3 * width_;
        persons_[intoAnotherRow ? at - 2 * width_ : at - 1]->addPartner(*persons_[at]);
    }

    void descend(std::size_t at)
    {
        const std::size_t rowAbove = (at / width_ - 1) * width_;
        const std::size_t couple = (rowAbove + random_() % width_) / 2 * 2;
        persons_[couple]->addChild(*persons_[at]);
        persons_[couple + 1]->addChild(*persons_[at]);
    }

    std::vector<Person*> persons_;
    std::size_t width_;
    unsigned straying_;
    std::mt19937 random_{1};
};

} // namespace

std::unique_ptr<ObjectContext> madeFamily(std::size_t persons, unsigned straying)
{
    auto family = std::make_unique<ObjectContext>();
    const Journal::Pause pause(family->journal());
    Pool& pool = family->insertPool();
    std::vector<Person*> all;
    for (std::size_t made = 0; made < persons; ++made) {
        all.push_back(&family->insertPerson());
        pool.addPerson(*all.back());
    }
    const std::size_t rows = persons <= 1'000 ? 12 : persons <= 10'000 ? 25 : 40;
    Links(std::move(all), rows, straying).make();
    return family;
}

} // namespace lineara
