#pragma once

#include <QColor>
#include <QString>
#include <QStringList>

#include <optional>

namespace lineara {

class Person;

/// The rounded panel with the person's name and life span; it carries the node's selected look.
class LeafInfoView
{
public:
    explicit LeafInfoView(Person& person);

    Person& person() const { return *person_; }

    void focus() { focused_ = true; }
    void unfocus() { focused_ = false; }
    bool isFocused() const { return focused_; }

    QColor backgroundColor() const;
    QColor borderColor() const;
    static constexpr double borderWidth = 1.0;
    static constexpr double cornerRadius = 6.0;

    /// Measures the texts again. To be called when name or era has changed.
    void refreshText();
    /// The width in whole points that the texts ask for; a wide picture makes the panel wider.
    int width() const { return width_; }

    /// The name as shown: one line or two, each at most as wide as the panel's inside; a hint for a nameless person.
    QStringList nameLines() const;
    /// True if the person has no name to show, so that nameLines() is a hint.
    bool isNameless() const;
    /// The life span as shown; empty if neither year is known.
    QString eraLine() const;
    /// The whole name where only a part of it is shown.
    std::optional<QString> toolTip() const;

private:
    Person* person_;
    int width_ = 0;
    bool focused_ = false;
};

} // namespace lineara
