#pragma once

#include <QString>
#include <QStringList>

#include <string>

namespace lineara {

class Person;

/// The text as it is compared in a search: letters without accents and case, so that "muller" finds "Müller" and
/// "lodz" finds "Łódź".
QString folded(const QString& text);

/// What somebody looks for: words that all have to be found, each anywhere, in the name, the years or the notes.
class SearchWords
{
public:
    /// Without words everybody is found.
    SearchWords() = default;
    explicit SearchWords(const QString& typed);

    bool empty() const { return words_.isEmpty(); }
    bool find(const Person& person) const;

private:
    QStringList words_;
    mutable std::u16string text_; // what is searched of a person; keeps its room for the next one
};

} // namespace lineara
