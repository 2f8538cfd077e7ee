#include "place_repair.h"

#include "family_links.h"
#include "store_texts.h"

#include <cstdlib>

namespace lineara::store {

namespace {

/// Greater than any family needs; twice as much still fits into 32 bits.
constexpr std::int64_t farthestPlace = 1'000'000'000;
/// A row is held for each generation from 0 on, even where nobody stands in it.
constexpr std::int64_t highestGeneration = 1'000'000;

/// Takes the number from everybody in whom it is beyond `most`.
class AbsurdNumbers
{
public:
    AbsurdNumbers(std::optional<std::int32_t> PersonValues::*number, std::int64_t most) : number_(number), most_(most)
    {}

    void leaveOut(RawPerson& person)
    {
        auto& number = person.values.*number_;
        if (!number || std::abs(std::int64_t{*number}) <= most_)
            return;
        if (count_++ == 0)
            first_ = u"%1: %2"_qs.arg(called(person)).arg(*number);
        number.reset();
    }

    void tell(const QString& name, QStringList& repairs) const
    {
        if (count_ > 0)
            repairs +=
                StoreTexts::tr("The attribute “%1” of %2 persons was beyond all measure (first of %3) and is left out.")
                    .arg(name)
                    .arg(count_)
                    .arg(first_);
    }

private:
    std::optional<std::int32_t> PersonValues::*number_;
    std::int64_t most_;
    std::size_t count_ = 0;
    QString first_;
};

} // namespace

void leaveOutAbsurdPlaces(RawFamily& family, QStringList& repairs)
{
    AbsurdNumbers generations(&PersonValues::generation, highestGeneration);
    AbsurdNumbers places(&PersonValues::x, farthestPlace);
    for (auto& person : family.persons) {
        generations.leaveOut(person);
        places.leaveOut(person);
    }
    generations.tell(u"generation"_qs, repairs);
    places.tell(u"x"_qs, repairs);
}

} // namespace lineara::store
