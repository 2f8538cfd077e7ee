#pragma once

#include "listed_document.h"

#include <map>
#include <string>

namespace lineara {

/// What has to be true of a document whenever its queue and its canvas are at rest and no button is down.
class RestChecks
{
public:
    explicit RestChecks(ListedDocument& edited) : edited_(edited) {}

    void checkAll();
    /// To be called where the last block of the queue was a full run of the engine.
    void checkFullRun() const;

private:
    void checkNodes() const;
    void checkRows() const;
    void checkLinks() const;
    void checkPlaces() const;
    void checkSelection() const;
    void checkText();
    void checkGenerations() const;

    ListedDocument& edited_;
    std::map<std::uint64_t, std::string> texts_; // by the newest step
};

} // namespace lineara
