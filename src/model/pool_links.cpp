#include "model/object_context.h"
#include "visit.h"

namespace lineara {

namespace {

using Relatives = const OrderedSet<Person*>& (Person::*)() const;

/// Half of a search: goes out from one person in one direction, a person at a time.
class Search
{
public:
    Search(const Visit& visit, const Person& start, Relatives relatives, std::uint32_t side)
        : visit_(visit), relatives_(relatives), side_(side), waiting_{&start}
    {
        visit_.meet(start, side_);
    }

    bool exhausted() const { return waiting_.empty(); }

    /// Looks at the relatives of one person; true if the other half has been at one of them.
    bool step()
    {
        const Person* const next = waiting_.back();
        waiting_.pop_back();
        for (const Person* const relative : (next->*relatives_)()) {
            if (!visit_.met(*relative)) {
                visit_.meet(*relative, side_);
                waiting_.push_back(relative);
            } else if (visit_.note(*relative) != side_) {
                return true;
            }
        }
        return false;
    }

private:
    const Visit& visit_;
    Relatives relatives_;
    std::uint32_t side_;
    std::vector<const Person*> waiting_;
};

} // namespace

bool Pool::canLink(QStringView type, const Person& from, const Person& to) const
{
    if (&from == &to)
        return false;
    if (type != offspringLink)
        return true;
    return to.parents().size() < 2 && !isDescendedFrom(from, to);
}

bool Pool::isDescendedFrom(const Person& a, const Person& b) const
{
    if (&a == &b)
        return false;
    // Up from `a` and down from `b` by turns: the walk costs no more than twice the smaller of the two, which is what
    // keeps a long line that is linked piece by piece from being walked whole for every piece.
    const Visit visit(context());
    Search up(visit, a, &Person::parents, 0);
    Search down(visit, b, &Person::children, 1);
    while (!up.exhausted() && !down.exhausted()) {
        if (up.step() || down.step())
            return true;
    }
    return false;
}

} // namespace lineara
