#include "model/dump.h"

#include <algorithm>
#include <set>
#include <sstream>

namespace lineara::test {

namespace {

void write(std::ostream& out, const char* name, const std::optional<std::int32_t>& value)
{
    if (value)
        out << ' ' << name << '=' << *value;
}

void write(std::ostream& out, const char* name, const std::optional<QString>& value)
{
    if (value)
        out << ' ' << name << "=\"" << value->toStdString() << '"';
}

void write(std::ostream& out, const char* name, const OrderedSet<Person*>& persons)
{
    out << ' ' << name << '[';
    for (const Person* const person : persons)
        out << ' ' << person->recordId().number;
    out << " ]";
}

void write(std::ostream& out, const Person& person)
{
    const PersonValues& values = person.values();
    write(out, "name", values.name);
    write(out, "additional", values.additional);
    write(out, "birthDay", values.birthDay);
    write(out, "birthMonth", values.birthMonth);
    write(out, "birthYear", values.birthYear);
    write(out, "deathDay", values.deathDay);
    write(out, "deathMonth", values.deathMonth);
    write(out, "deathYear", values.deathYear);
    write(out, "generation", values.generation);
    write(out, "x", values.x);
    write(out, "parents", person.parents());
    write(out, "children", person.children());
    write(out, "partners", person.partners());
    out << " pool=" << (person.pool() ? person.pool()->recordId().number : 0);
    out << " pic=" << (person.pic() ? person.pic()->recordId().number : 0);
    out << " source=" << (person.source() ? person.source()->recordId().number : 0);
}

void write(std::ostream& out, const Pic& pic)
{
    out << (pic.hasData() ? " data=" : " none") << pic.data().toHex().toStdString();
    out << " person=" << (pic.person() ? pic.person()->recordId().number : 0);
}

void write(std::ostream& out, const SourceRecord& source)
{
    out << " \"" << source.origin().file.toStdString() << "\" line " << source.origin().line << ' '
        << source.text().toHex().toStdString();
    out << " person=" << (source.person() ? source.person()->recordId().number : 0);
}

bool isSet(const OrderedSet<Person*>& persons)
{
    return std::set<Person*>(persons.begin(), persons.end()).size() == persons.size();
}

bool holds(const OrderedSet<Person*>& persons, const Person* person)
{
    return std::ranges::find(persons, person) != persons.end();
}

bool agrees(const Person& person)
{
    const auto all = [](const OrderedSet<Person*>& others, const auto& condition) {
        return std::ranges::all_of(others, [&](const Person* other) { return condition(*other); });
    };
    return isSet(person.parents()) && isSet(person.children()) && isSet(person.partners()) &&
           all(person.parents(), [&](const Person& parent) { return holds(parent.children(), &person); }) &&
           all(person.children(), [&](const Person& child) { return holds(child.parents(), &person); }) &&
           all(person.partners(), [&](const Person& partner) { return holds(partner.partners(), &person); }) &&
           (!person.pool() || holds(person.pool()->persons(), &person)) &&
           (!person.pic() || person.pic()->person() == &person) &&
           (!person.source() || person.source()->person() == &person);
}

} // namespace

std::string dump(const Record& record)
{
    std::ostringstream out;
    out << record.recordId().number;
    switch (record.entity()) {
    case Entity::Person:
        out << " person";
        write(out, static_cast<const Person&>(record));
        break;
    case Entity::Pool:
        out << " pool";
        write(out, "persons", static_cast<const Pool&>(record).persons());
        break;
    case Entity::Pic:
        out << " pic";
        write(out, static_cast<const Pic&>(record));
        break;
    case Entity::Source:
        out << " source";
        write(out, static_cast<const SourceRecord&>(record));
        break;
    }
    return out.str();
}

std::string dump(const ObjectContext& context)
{
    std::string text = "next " + std::to_string(context.nextNumber()) + '\n';
    for (const Pool* const pool : context.allPools())
        text += dump(*pool) + '\n';
    for (const Person* const person : context.allPersons())
        text += dump(*person) + '\n';
    for (const Pic* const pic : context.allPics())
        text += dump(*pic) + '\n';
    for (const SourceRecord* const source : context.allSources())
        text += dump(*source) + '\n';
    return text;
}

std::string inconsistencies(const ObjectContext& context)
{
    std::string found;
    for (const Person* const person : context.allPersons()) {
        if (!agrees(*person))
            found += dump(*person) + '\n';
    }
    for (const Pool* const pool : context.allPools()) {
        if (!isSet(pool->persons()) ||
            !std::ranges::all_of(pool->persons(), [&](const Person* person) { return person->pool() == pool; }))
            found += dump(*pool) + '\n';
    }
    for (const Pic* const pic : context.allPics()) {
        if (pic->person() && pic->person()->pic() != pic)
            found += dump(*pic) + '\n';
    }
    for (const SourceRecord* const source : context.allSources()) {
        if (source->person() && source->person()->source() != source)
            found += dump(*source) + '\n';
    }
    return found;
}

} // namespace lineara::test
