#pragma once

#include <QString>

#include <cassert>
#include <utility>
#include <variant>

namespace lineara {

/// Why something could not be done: one sentence for the user that names the file, the place in it where there is one,
/// and the reason.
struct Failure
{
    QString message;
    /// The reason alone, ready to follow a colon; empty where it can't be told from the rest.
    QString reason = {};
};

/// A value, or the reason why there is none. The one error channel of the program: nothing is thrown across rooms.
template<class T>
class [[nodiscard]] Outcome
{
public:
    Outcome(T value) : state_(std::in_place_index<0>, std::move(value)) {}
    Outcome(Failure failure) : state_(std::in_place_index<1>, std::move(failure)) {}

    explicit operator bool() const { return state_.index() == 0; }
    bool failed() const { return state_.index() == 1; }

    T& value()
    {
        assert(!failed());
        return std::get<0>(state_);
    }
    const T& value() const
    {
        assert(!failed());
        return std::get<0>(state_);
    }
    const Failure& failure() const { return std::get<1>(state_); }

private:
    std::variant<T, Failure> state_;
};

/// The value of an Outcome that only tells whether something was done.
struct Done
{};

} // namespace lineara
