#pragma once

#include "interchange/further_facts.h"

#include <QElapsedTimer>
#include <QTreeWidget>

#include <vector>

namespace lineara {

/// Facts as a tree to be read. Long texts are cut in their rows; tooltips tell more of them, and copies all. Nothing
/// can be folded away. The keyboard goes from fact to fact, past the headings, and to those whose label or value begins
/// as is typed.
class FurtherFactsList : public QTreeWidget
{
public:
    explicit FurtherFactsList(const std::vector<FurtherFact>& facts);

    /// The selected facts, one below the other as they stand, each group of them with its heading.
    QString selectedText();

    /// The whole value of the current fact, or else what it is called.
    QString currentText() const;

    /// Holds some rows, so that whatever is shown beside the list yields first.
    QSize minimumSizeHint() const override;
    void keyboardSearch(const QString& typed) override;

protected:
    void drawBranches(QPainter* painter, const QRect& rect, const QModelIndex& index) const override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void resizeEvent(QResizeEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

private:
    QModelIndex factFrom(QModelIndex at, bool isUpwards) const;
    QModelIndex rowBelow(const QModelIndex& at) const;
    void fill(const std::vector<FurtherFact>& facts);
    void addCopying();
    void fitColumns();

    int labelWidth_ = 0; // as wide as it is to be where there is room
    bool isNarrowing_ = false;
    QString typed_; // of a search that goes on
    QElapsedTimer sinceTyped_;
};

} // namespace lineara
