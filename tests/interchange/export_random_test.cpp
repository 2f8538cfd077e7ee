// Families at random: what is exported and read again is the same family.

#include "exported.h"

#include <gtest/gtest.h>

#include <random>

using namespace lineara;

namespace {

#ifdef LINEARA_SANITIZED
constexpr unsigned families = 100;
#else
constexpr unsigned families = 2000;
#endif

/// Changes a family as users do, with values that a genealogy can hold.
class RandomEditor
{
public:
    RandomEditor(ObjectContext& family, unsigned seed) : family_(family), random_(seed) {}

    void addPersons(std::size_t count)
    {
        for (std::size_t i = 0; i < count; ++i)
            addPerson();
    }

    void changeSomething()
    {
        const auto persons = family_.allPersons();
        if (persons.empty() || below(8) == 0)
            return addPerson();
        Person& one = *persons[below(persons.size())];
        Person& other = *persons[below(persons.size())];
        switch (below(8)) {
        case 0:
            return one.addPartner(other);
        case 1:
            return one.removePartner(other);
        case 2:
        case 3:
            if (family_.allPools().front()->canLink(offspringLink, one, other))
                one.addChild(other);
            return;
        case 4:
            return unlink(one);
        case 5:
            return change(one);
        case 6:
            return below(3) == 0 ? family_.remove(one) : change(one);
        default:
            if (!one.partners().empty() && !other.parents().empty() == false &&
                family_.allPools().front()->canLink(offspringLink, *one.partners()[0], other))
                one.partners()[0]->addChild(other);
        }
    }

private:
    std::size_t below(std::size_t end) { return std::uniform_int_distribution<std::size_t>(0, end - 1)(random_); }

    void addPerson()
    {
        Person& person = family_.insertPerson({.name = name()});
        family_.allPools().front()->addPerson(person);
        change(person);
    }

    void unlink(Person& person)
    {
        if (!person.children().empty())
            person.removeChild(*person.children()[below(person.children().size())]);
        else if (!person.parents().empty())
            person.parents()[0]->removeChild(person);
    }

    void change(Person& person)
    {
        switch (below(4)) {
        case 0:
            return person.setName(name());
        case 1:
            return person.setAdditional(note());
        case 2:
            person.setBirthYear(year());
            person.setBirthMonth(person.birthYear() && below(2) ? number(12) : std::nullopt);
            return person.setBirthDay(person.birthMonth() ? number(28) : std::nullopt);
        default:
            person.setDeathYear(year());
            person.setDeathMonth(person.deathYear() && below(2) ? number(12) : std::nullopt);
            return person.setDeathDay(person.deathMonth() && below(2) ? number(28) : std::nullopt);
        }
    }

    std::optional<std::int32_t> number(std::size_t most) { return static_cast<std::int32_t>(below(most) + 1); }

    std::optional<std::int32_t> year()
    {
        if (below(4) == 0)
            return std::nullopt;
        const auto found = static_cast<std::int32_t>(below(2000) + 1);
        return below(9) == 0 ? -found : found;
    }

    std::optional<QString> name()
    {
        if (below(12) == 0)
            return std::nullopt;
        static const QStringList words = {QStringLiteral("Ada"), QStringLiteral("Zoë"),       QStringLiteral("a/b"),
                                          QStringLiteral("@x@"), QStringLiteral("O'Oak"),     QStringLiteral("\"Bo\""),
                                          QStringLiteral("//"),  QStringLiteral("\U0001F333")};
        QStringList name;
        for (std::size_t i = below(4) + 1; i > 0; --i)
            name << words[static_cast<qsizetype>(below(8))];
        return name.join(u' ');
    }

    std::optional<QString> note()
    {
        static const QStringList pieces = {QStringLiteral("text "),
                                           QStringLiteral("@"),
                                           QStringLiteral("\n"),
                                           QStringLiteral("\n\n"),
                                           QStringLiteral("  two"),
                                           QStringLiteral("\U0001F333").repeated(70),
                                           QStringLiteral("long").repeated(80),
                                           QStringLiteral("@@").repeated(150),
                                           QStringLiteral("0 @I1@ INDI"),
                                           QStringLiteral(" ").repeated(300) + u'x',
                                           QStringLiteral("/slash/")};
        QString text;
        for (std::size_t i = below(6); i > 0; --i)
            text += pieces[static_cast<qsizetype>(below(11))];
        return text.trimmed().isEmpty() ? std::nullopt : std::optional(text);
    }

    ObjectContext& family_;
    std::mt19937 random_;
};

void expectSame(const ObjectContext& family, GedcomFormat format, unsigned seed)
{
    const QByteArray text = exported(family, format);
    const auto again = imported(text);
    ASSERT_EQ(familyText(*again.context), familyText(family)) << "seed " << seed << '\n' << text.toStdString();
    ASSERT_EQ(exported(family, format), text);
    ASSERT_EQ(exported(*again.context, format), text) << "seed " << seed;
}

void expectSameAfterEdits(const QString& file, unsigned rounds)
{
    for (unsigned seed = 1; seed <= rounds; ++seed) {
        const auto family = imported(dataFile(file));
        RandomEditor editor(*family.context, seed);
        for (unsigned edit = 0; edit < 10 + seed % 40; ++edit)
            editor.changeSomething();
        for (const auto format : {GedcomFormat::Gedcom551, GedcomFormat::Gedcom70}) {
            const QByteArray text = exported(*family.context, format);
            const auto again = imported(text);
            ASSERT_EQ(familyText(*again.context), familyText(*family.context))
                << file.toStdString() << " seed " << seed << '\n'
                << text.toStdString();
            ASSERT_EQ(exported(*family.context, format), text);
        }
    }
}

} // namespace

TEST(ExportAtRandom, FamiliesMadeHereComeBack)
{
    for (unsigned seed = 1; seed <= families; ++seed) {
        ObjectContext family(QUuid(QStringLiteral("0f9619ff-8b86-4011-b42d-00c04fc964ff")));
        family.insertPool();
        RandomEditor editor(family, seed);
        editor.addPersons(1 + seed % 12);
        for (unsigned edit = 0; edit < seed % 60; ++edit)
            editor.changeSomething();
        expectSame(family, seed % 2 ? GedcomFormat::Gedcom551 : GedcomFormat::Gedcom70, seed);
        if (HasFatalFailure())
            return;
    }
}

TEST(ExportAtRandom, EditsOfImportedFamiliesComeBack)
{
    expectSameAfterEdits(QStringLiteral("relationships-complex.ged"), families / 20);
    expectSameAfterEdits(QStringLiteral("family-structure-variants.ged"), families / 20);
    expectSameAfterEdits(QStringLiteral("calendar-dates.ged"), families / 40);
    expectSameAfterEdits(QStringLiteral("malformed/circular-reference.ged"), families / 40);
    expectSameAfterEdits(QStringLiteral("royal92.ged"), families / 200);
}

TEST(ExportAtRandom, LinesOf551AreShort)
{
    for (unsigned seed = 1; seed <= 200; ++seed) {
        ObjectContext family;
        family.insertPool();
        RandomEditor(family, seed).addPersons(5);
        for (const std::string& line : linesOf(exported(family))) {
            ASSERT_LE(QString::fromStdString(line).size(), 255);
            ASSERT_TRUE(QByteArray::fromStdString(line).isValidUtf8());
        }
    }
}
