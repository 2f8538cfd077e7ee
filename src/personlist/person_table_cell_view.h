#pragma once

#include "field_line.h"
#include "model/person.h"
#include "person_cell.h"
#include "person_edit.h"
#include "personlist/further_facts.h"

#include <QWidget>

#include <functional>
#include <optional>

class QPushButton;

namespace lineara {

class DateField;
class NotesField;
class RefusedEntries;
struct PartialDate;

/// Height of a row that is open.
inline constexpr int expandedHeight = 421;

/// What an open row needs of the list around it.
struct CellSurroundings
{
    CellSources sources;
    RefusedEntries& refused;
    /// The cell was pressed somewhere.
    std::function<void()> pressed;
    /// A field was left by Return or Escape.
    std::function<void()> left;
    std::function<void()> setPic;
    std::function<void()> removePic;
    /// Whether the list itself has the keyboard.
    std::function<bool()> isListFocused;
    /// Something was typed that is not in the record yet.
    std::function<void()> typed;
    const FurtherFacts& facts;
};

/// The row of one person as an editor. It is that person's for as long as it lives, so that nothing typed can reach
/// another one; what is typed is taken into the record at the latest when the cell is hidden or destroyed.
class PersonTableCellView : public QWidget
{
public:
    PersonTableCellView(ObjectContext& context, RecordId person, CellSurroundings surroundings);
    ~PersonTableCellView() override;

    /// Make it an editor, and a row like the others. The look follows by setExpansion().
    void expand();
    void collapse();
    bool isExpanded() const { return isExpanded_; }
    /// 0 is the look of a collapsed row, 1 that of an editor.
    void setExpansion(double expansion);

    /// Shows what the record says, except where something is being typed.
    void refresh();
    /// Shows how many further facts there are now.
    void refreshFacts();
    /// Takes what was typed into the record.
    void commit();
    /// What commit() would make of the person, or no value where that is what it is already.
    std::optional<PersonValues> typed() const;
    void editName();
    /// Everything that takes the keyboard, in the order of the Tab key.
    QList<QWidget*> fields() const;

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    class Veil;

    void assemble();
    DateField* makeDate(const QString& name, const QString& pickerName, const QString& step,
                        void (*store)(Person&, const PartialDate&));
    void commitFields();
    void commitName();
    void commitNotes();
    void nameEnded(FieldEnd end);
    void notesEnded(FieldEnd end);
    void fieldEnded(FieldEnd end);
    void pressed(const QWidget& widget);
    void keepRefused();
    void showRefused();
    QColor ground() const;
    void paintVeil(QPainter& painter) const;
    void showPicture(const Person& person);

    RecordId person_;
    PersonEdit edit_;
    CellSurroundings surroundings_;
    QWidget* editables_; // everything but the look of a collapsed row
    QWidget* veil_;      // covers the fields with that look as far as the row is not open
    QPushButton* picButton_;
    QPushButton* picRemoveButton_;
    QPushButton* factsButton_;
    FieldLine* name_;
    DateField* birth_;
    DateField* death_;
    NotesField* notesTextField_;
    bool isExpanded_ = false;
    double expansion_ = 0;
};

} // namespace lineara
