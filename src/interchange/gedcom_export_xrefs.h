#pragma once

#include "gedcom_export_kept.h"

#include <string>
#include <unordered_set>

namespace lineara {

/// Names of new records that nothing in the kept ones points at yet.
class ExportXrefs
{
public:
    explicit ExportXrefs(const KeptRecords& kept) : kept_(kept) {}

    /// The wish, or its letter with the first number that is free.
    std::string take(const std::string& wish);

private:
    void readUsed();

    const KeptRecords& kept_;
    std::unordered_set<std::string> used_;
    bool isRead_ = false;
};

} // namespace lineara
