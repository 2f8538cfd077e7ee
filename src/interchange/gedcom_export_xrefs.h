#pragma once

#include "gedcom_export_kept.h"

#include <cstdint>
#include <string>
#include <unordered_map>
#include <unordered_set>

namespace lineara {

/// Names of new records that nothing in the kept ones points at yet.
class ExportXrefs
{
public:
    explicit ExportXrefs(const KeptRecords& kept) : kept_(kept) {}

    /// The wish, or its letter with the first number that is free.
    std::string take(const std::string& wish);

    /// The letter with the next number that is free: for many names of one kind.
    std::string next(char letter);

    /// The records' lines with cross-references as 7.0 allows them: of upper case letters, digits and underscores. The
    /// record that is called `unreachable`, which pointers by that name don't mean, gets a name of its own.
    std::string inSeven(std::string_view lines, std::string_view unreachable = {});

private:
    void readUsed();
    const std::string& inSevenXref(std::string_view xref);
    std::string newInSeven(std::string_view xref);

    const KeptRecords& kept_;
    std::unordered_set<std::string> used_;
    std::unordered_map<std::string, std::string> renamed_;
    std::unordered_map<char, std::uint64_t> last_;              ///< number that was given
    std::unordered_map<std::string, std::uint64_t> lastOfWish_; ///< number behind a name that several wish for
    bool isRead_ = false;
};

} // namespace lineara
