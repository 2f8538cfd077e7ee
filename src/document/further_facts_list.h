#pragma once

#include "interchange/further_facts.h"

#include <QTreeWidget>

#include <vector>

namespace lineara {

/// Facts as a tree to be read. Long values are cut in their rows; tooltips tell more of them, and copies all.
class FurtherFactsList : public QTreeWidget
{
public:
    explicit FurtherFactsList(const std::vector<FurtherFact>& facts);

    /// The selected facts, one below the other as they stand, each group of them with its heading.
    QString selectedText();

private:
    void fill(const std::vector<FurtherFact>& facts);
    void addCopying();
    void fitColumns();
};

} // namespace lineara
