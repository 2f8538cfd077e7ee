#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace lineara {

class EditedRecord;

/// The records of 5.5.1 with their objects (pictures, recordings, documents) as 7.0 has them: an object is a record of
/// its own, everything else points at it, and the format of a file is a media type below the file.
class ObjectsInSeven
{
public:
    /// `nextXref` gives a cross-reference that nothing has.
    explicit ObjectsInSeven(std::function<std::string()> nextXref) : nextXref_(std::move(nextXref)) {}

    /// The record, and behind it one for each object that stood in it, in order. They are written as in 5.5.1
    /// otherwise.
    std::string of(std::string_view record) const;

private:
    /// Puts a pointer in the place of an object; returns the object's record, or nothing if it is of no file.
    std::string takenOut(EditedRecord& lines, std::size_t object) const;

    std::function<std::string()> nextXref_;
};

/// The record of an object with its formats as 5.5.1 has them, in whose other lines it is written already; any other
/// record as it stands.
std::string objectInFive(std::string_view record);

} // namespace lineara
