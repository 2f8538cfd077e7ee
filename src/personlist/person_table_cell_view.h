#pragma once

#include "field_line.h"
#include "person_edit.h"

#include <QWidget>

#include <functional>

class QGraphicsOpacityEffect;

namespace lineara {

class Thumbnails;

/// Height of a row that is open.
inline constexpr int expandedHeight = 421;

/// What an open row needs of the list around it.
struct CellSurroundings
{
    Thumbnails& thumbnails;
    /// The cell was pressed somewhere.
    std::function<void()> pressed;
    /// A field was left by Return or Escape.
    std::function<void()> left;
    /// Whether the list itself has the keyboard.
    std::function<bool()> isListFocused;
};

/// The row of one person as an editor. It is that person's for as long as it lives, so that nothing typed can reach
/// another one; what is typed is taken into the record at the latest when the cell is hidden or destroyed.
class PersonTableCellView : public QWidget
{
public:
    PersonTableCellView(ObjectContext& context, RecordId person, std::function<void()> aboutToEdit,
                        CellSurroundings surroundings);
    ~PersonTableCellView() override;

    /// Make it an editor, and a row like the others. The look follows by setExpansion().
    void expand();
    void collapse();
    bool isExpanded() const { return isExpanded_; }
    /// 0 is the look of a collapsed row, 1 that of an editor.
    void setExpansion(double expansion);

    /// Shows what the record says, except where something is being typed.
    void refresh();
    /// Takes what was typed into the record.
    void commit();
    void editName();
    /// Everything that takes the keyboard, in the order of the Tab key.
    QList<QWidget*> fields() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void nameEnded(FieldEnd end);
    void commitName();

    PersonEdit edit_;
    CellSurroundings surroundings_;
    QWidget* editables_;
    QGraphicsOpacityEffect* fade_;
    FieldLine* name_;
    bool isExpanded_ = false;
    double expansion_ = 0;
};

} // namespace lineara
