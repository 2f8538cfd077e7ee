#include "family_state.h"

#include "store/family_file.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QDataStream>
#include <QFile>

#include <algorithm>
#include <vector>

namespace lineara::chaos {

namespace {

std::vector<quint64> numbers(const OrderedSet<Person*>& persons)
{
    std::vector<quint64> result;
    for (const Person* const person : persons)
        result.push_back(person->recordId().number);
    std::ranges::sort(result);
    return result;
}

template<class Number>
void write(QDataStream& stream, const std::optional<Number>& value)
{
    stream << value.has_value();
    if (value)
        stream << *value;
}

void write(QDataStream& stream, const PersonValues& values)
{
    write(stream, values.name);
    write(stream, values.additional);
    for (const auto& number :
         {values.birthDay, values.birthMonth, values.birthYear, values.deathDay, values.deathMonth, values.deathYear})
        write(stream, number);
}

} // namespace

QByteArray stateOf(const ObjectContext& family, const std::optional<TypedValues>& typed)
{
    auto persons = family.allPersons();
    std::ranges::sort(persons, {}, [](const Person* person) { return person->recordId().number; });
    QByteArray state;
    QDataStream stream(&state, QIODevice::WriteOnly);
    for (const Person* const person : persons) {
        stream << quint64{person->recordId().number} << (person->pool() != nullptr);
        write(stream, typed && typed->person == person->recordId() ? typed->values : person->values());
        for (const auto* const links : {&person->parents(), &person->children(), &person->partners()}) {
            for (const auto number : numbers(*links))
                stream << number;
            stream << quint64{0};
        }
    }
    return digestOf(state);
}

QByteArray bytesOf(const ObjectContext& family)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    writeFamily(family, buffer);
    return buffer.data();
}

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray digestOf(const QByteArray& bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha1).toHex();
}

std::unique_ptr<ObjectContext> madeFamily(int persons)
{
    auto family = std::make_unique<ObjectContext>();
    Pool& pool = family->insertPool();
    Person* parents[2] = {};
    for (int made = 0; made < persons; made += 2) {
        Person* couple[2] = {};
        for (auto*& person : couple) {
            PersonValues values;
            values.name = QStringLiteral("Person %1").arg(made);
            values.additional = QStringLiteral("Notes on <somebody> & others, number %1").arg(made);
            values.birthYear = made;
            person = &family->insertPerson(std::move(values));
            pool.addPerson(*person);
        }
        couple[0]->addPartner(*couple[1]);
        // Ten generations to a line of descent, or every change would take as long as the family is old.
        const bool isFounding = made % 20 == 0;
        for (auto* const parent : parents) {
            if (!isFounding && parent)
                parent->addChild(*couple[0]);
        }
        std::ranges::copy(couple, parents);
    }
    return family;
}

} // namespace lineara::chaos
