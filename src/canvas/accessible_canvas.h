#pragma once

#include "model/record.h"

#include <QAccessibleWidget>

#include <unordered_map>

namespace lineara {

class TreeView;

/// The canvas as assistive tools see it: the nodes are its children, in the order in which the layer holds them.
class AccessibleCanvas : public QAccessibleWidget
{
public:
    explicit AccessibleCanvas(TreeView& canvas);
    ~AccessibleCanvas() override;

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* focusChild() const override;
    QString text(QAccessible::Text what) const override;

    TreeView& canvas() const;

private:
    QAccessibleInterface* nodeOf(RecordId person) const;

    mutable std::unordered_map<RecordId, QAccessible::Id> nodes_; // those that were asked for
};

} // namespace lineara
