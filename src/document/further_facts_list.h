#pragma once

#include "interchange/further_facts.h"

#include <QTreeWidget>

#include <vector>

namespace lineara {

/// Facts as a tree to be read. Long texts are cut in their rows; tooltips tell more of them, and copies all. The
/// keyboard goes from fact to fact, past the headings.
class FurtherFactsList : public QTreeWidget
{
public:
    explicit FurtherFactsList(const std::vector<FurtherFact>& facts);

    /// The selected facts, one below the other as they stand, each group of them with its heading.
    QString selectedText();

    /// The whole value of the current fact, or else what it is called.
    QString currentText() const;

protected:
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

private:
    QModelIndex factFrom(QModelIndex at, bool isUpwards) const;
    void fill(const std::vector<FurtherFact>& facts);
    void addCopying();
    void fitColumns();
};

} // namespace lineara
