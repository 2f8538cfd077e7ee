#include "exported.h"

#include "gedzip.h"
#include "store/family_content.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QFile>
#include <QImage>

#include <algorithm>
#include <map>
#include <sstream>
#include <stdexcept>

namespace lineara {
namespace {

using Lines = std::vector<std::string>;

/// Lengths of the longest common beginnings' subsequences, as a table.
std::vector<std::vector<unsigned>> commonLengths(const Lines& a, const Lines& b)
{
    std::vector<std::vector<unsigned>> lengths(a.size() + 1, std::vector<unsigned>(b.size() + 1));
    for (std::size_t i = a.size(); i-- > 0;) {
        for (std::size_t j = b.size(); j-- > 0;)
            lengths[i][j] = a[i] == b[j] ? lengths[i + 1][j + 1] + 1 : std::max(lengths[i + 1][j], lengths[i][j + 1]);
    }
    return lengths;
}

Lines marked(const Lines& a, const Lines& b)
{
    const auto lengths = commonLengths(a, b);
    Lines found;
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < a.size() || j < b.size()) {
        if (i < a.size() && j < b.size() && a[i] == b[j]) {
            ++i;
            ++j;
        } else if (j == b.size() || (i < a.size() && lengths[i + 1][j] >= lengths[i][j + 1])) {
            found.push_back('-' + a[i++]);
        } else {
            found.push_back('+' + b[j++]);
        }
    }
    return found;
}

void write(std::ostream& out, const std::optional<std::int32_t>& number)
{
    if (number)
        out << *number;
    out << '|';
}

void write(std::ostream& out, const std::optional<QString>& text)
{
    if (text)
        out << text->toStdString();
    out << '|';
}

} // namespace

QByteArray exported(const ObjectContext& family, GedcomFormat format)
{
    auto text = gedcomOf(FamilyContent(family), format);
    if (text.failed())
        throw std::runtime_error(text.failure().message.toStdString());
    return std::move(text.value());
}

std::vector<std::string> linesOf(const QByteArray& text)
{
    Lines lines;
    for (const QByteArray& line : QByteArray(text).replace("\r\n", "\n").replace('\r', '\n').split('\n')) {
        if (!line.trimmed().isEmpty())
            lines.push_back(line.toStdString());
    }
    return lines;
}

std::vector<std::string> difference(const QByteArray& before, const QByteArray& after)
{
    auto a = linesOf(before);
    auto b = linesOf(after);
    std::size_t same = 0;
    while (same < std::min(a.size(), b.size()) && a[same] == b[same])
        ++same;
    a.erase(a.begin(), a.begin() + static_cast<std::ptrdiff_t>(same));
    b.erase(b.begin(), b.begin() + static_cast<std::ptrdiff_t>(same));
    while (!a.empty() && !b.empty() && a.back() == b.back()) {
        a.pop_back();
        b.pop_back();
    }
    return marked(a, b);
}

std::string familyText(const ObjectContext& family)
{
    const auto persons = family.allPersons();
    std::map<const Person*, std::size_t> places;
    for (const Person* const person : persons)
        places.emplace(person, places.size());
    std::ostringstream out;
    const auto writeSet = [&](const OrderedSet<Person*>& others) {
        std::set<std::size_t> sorted;
        for (const Person* const other : others)
            sorted.insert(places.at(other));
        for (const std::size_t place : sorted)
            out << place << ' ';
        out << '|';
    };
    for (const Person* const person : persons) {
        const PersonValues& values = person->values();
        out << places.at(person) << ": ";
        write(out, values.name);
        write(out, values.additional);
        for (const auto& number : {values.birthDay, values.birthMonth, values.birthYear, values.deathDay,
                                   values.deathMonth, values.deathYear})
            write(out, number);
        writeSet(person->parents());
        writeSet(person->children());
        writeSet(person->partners());
        out << '\n';
    }
    return out.str();
}

QByteArray versionFive(const QByteArray& records)
{
    return "0 HEAD\n1 GEDC\n2 VERS 5.5.1\n2 FORM LINEAGE-LINKED\n1 CHAR UTF-8\n" + records + "0 TRLR\n";
}

std::vector<std::string> inSeven(const ImportedFamily& family)
{
    auto lines = linesOf(exported(*family.context, GedcomFormat::Gedcom70));
    lines.erase(lines.begin(), lines.begin() + 3);
    return lines;
}

void expectToComeBack(const ImportedFamily& family)
{
    const QByteArray seven = exported(*family.context, GedcomFormat::Gedcom70);
    EXPECT_EQ(exported(*family.context, GedcomFormat::Gedcom70), seven);
    const auto again = imported(seven);
    EXPECT_EQ(familyText(*again.context), familyText(*family.context));
    EXPECT_EQ(exported(*again.context, GedcomFormat::Gedcom70), seven);
}

QByteArray png(Qt::GlobalColor colour)
{
    QImage image(8, 8, QImage::Format_RGB32);
    image.fill(colour);
    QBuffer buffer;
    image.save(&buffer, "PNG");
    return buffer.data();
}

QByteArray archiveOf(const QByteArray& genealogy, const ArchiveFiles& files)
{
    return gedzipOf(genealogy, files, {}).value();
}

QByteArray genealogyIn(const QByteArray& archive)
{
    return Gedzip::openBytes(archive, {}).value()->genealogy({}).value();
}

QByteArray pictureOf(const Person& person)
{
    return person.pic() ? person.pic()->data() : QByteArrayLiteral("none");
}

QByteArray dataFile(const QString& name)
{
    QFile file(QStringLiteral(LINEARA_TEST_DATA "/gedcom/") + name);
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error(name.toStdString());
    return file.readAll();
}

} // namespace lineara
