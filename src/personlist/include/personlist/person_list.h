#pragma once

#include "model/person.h"

#include <functional>
#include <optional>
#include <vector>

class QWidget;

namespace lineara {

/// What would become of a person if what is being typed were taken into its record now.
struct TypedValues
{
    RecordId person;
    PersonValues values;
};

/// What a document asks of the list of persons beside its canvas. Changes of rows and of the selected row that the
/// document asks for are not announced back to it.
class PersonList
{
public:
    virtual ~PersonList() = default;

    /// The list as a widget, which the window takes over.
    virtual QWidget& view() = 0;

    virtual void addObject(Person& person) = 0;
    virtual void removeObject(Person& person) = 0;
    virtual void rearrangeObjects() = 0;
    /// Shows these persons and nobody else; rows that are there already stay.
    virtual void setObjects(const std::vector<Person*>& persons) = 0;

    /// Selects the person's row, opens it and scrolls to it.
    virtual void select(Person& person) = 0;
    /// The row that was selected closes at once.
    virtual void deselectAll() = 0;
    /// Puts the name field of the person's row into editing.
    virtual void editNameForPerson(Person& person) = 0;
    /// True while something is being typed into a field of the list.
    virtual bool isEditing() const = 0;
    /// Takes what is being typed into the record.
    virtual void commitEditing() = 0;
    /// No value where nothing is being typed that differs from the record. The typing is not disturbed.
    virtual std::optional<TypedValues> typed() const = 0;
    /// Called whenever something is typed that is not taken into the record yet.
    virtual void setTypedObserver(std::function<void()> typed) = 0;
    /// Puts the search field into editing.
    virtual void findPersons() = 0;
    /// Lets the user choose a file as the person's picture.
    virtual void choosePicture(Person& person) = 0;
    virtual void removePicture(Person& person) = 0;
};

} // namespace lineara
