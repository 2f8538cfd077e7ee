#pragma once

#include "store/family_file.h"

#include <gmock/gmock.h>

#include <QBuffer>

#include <ostream>
#include <string>
#include <vector>

QT_BEGIN_NAMESPACE
inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << text.toStdString();
}
inline void PrintTo(const QByteArray& bytes, std::ostream* out)
{
    *out << bytes.toStdString();
}
QT_END_NAMESPACE

namespace lineara::test {

/// A whole file around the given objects, in canonical form if they are.
inline QByteArray fileWith(const QByteArray& objects, const QByteArray& nextObject = "200")
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<database>\n"
           "    <databaseInfo>\n"
           "        <formatVersion>1</formatVersion>\n"
           "        <UUID>0f9619ff-8b86-4011-b42d-00c04fc964ff</UUID>\n"
           "        <nextObject>" +
           nextObject +
           "</nextObject>\n"
           "        <metadata key=\"modelVersion\">14</metadata>\n"
           "    </databaseInfo>\n" +
           objects + "</database>\n";
}

inline QByteArray object(const QByteArray& type, const QByteArray& id, const QByteArray& members)
{
    return "    <object type=\"" + type + "\" id=\"" + id + "\">\n" + members + "    </object>\n";
}

inline QByteArray person(const QByteArray& id, const QByteArray& members = {})
{
    return object("PERSON", id, members);
}

inline QByteArray attribute(const QByteArray& name, const QByteArray& type, const QByteArray& value)
{
    return "        <attribute name=\"" + name + "\" type=\"" + type + "\">" + value + "</attribute>\n";
}

inline QByteArray links(const QByteArray& name, const QByteArray& ids, const QByteArray& destination = "PERSON",
                        const QByteArray& type = "0/0")
{
    return "        <relationship name=\"" + name + "\" type=\"" + type + "\" destination=\"" + destination +
           "\" idrefs=\"" + ids + "\"/>\n";
}

inline QByteArray pool(const QByteArray& persons, const QByteArray& id = "z101")
{
    return object("POOL", id, links("persons", persons));
}

/// An imported record as it is written.
inline QByteArray source(const QByteArray& id, const QByteArray& text, const QByteArray& members = {})
{
    return object("SOURCERECORD", id,
                  attribute("origin", "string", "a.ged") + attribute("line", "int32", "12") +
                      attribute("text", "string", text) + members);
}

/// The line by which a person or an imported record names the other.
inline QByteArray madeOf(const QByteArray& id)
{
    return links("sourceRecord", id, "SOURCERECORD", "0/1");
}
inline QByteArray ofPerson(const QByteArray& id)
{
    return links("person", id, "PERSON", "0/1");
}

/// The line by which a person names its pool.
inline QByteArray inPool(const QByteArray& id = "z101")
{
    return links("pool", id, "POOL", "0/1");
}

/// Parents z102 and z103, partners, with their children z104 and z105; canonical.
inline QByteArray smallFamily()
{
    return fileWith(pool("z102 z103 z104 z105") +
                        person("z102", attribute("name", "string", "Ada") + attribute("birthYear", "int32", "1815") +
                                           links("children", "z104 z105") + links("partners", "z103") + inPool()) +
                        person("z103", attribute("name", "string", "Ben") +
                                           attribute("additional", "string", "a &lt; b &amp; c") +
                                           attribute("generation", "int32", "2") + attribute("x", "int32", "-40") +
                                           links("children", "z104 z105") + links("partners", "z102") + inPool()) +
                        person("z104", links("parents", "z102 z103") + inPool()) +
                        person("z105", attribute("name", "string", "Dan") + links("parents", "z103 z102") + inPool()),
                    "106");
}

inline LoadedFamily loaded(const QByteArray& text)
{
    auto family = readFamily(text, u"test.lineara"_qs);
    if (family.failed()) {
        ADD_FAILURE() << family.failure().message.toStdString();
        return {std::make_unique<ObjectContext>(), {}};
    }
    return std::move(family.value());
}

/// The message that refuses the text; empty if it is read.
inline std::string refusal(const QByteArray& text)
{
    const auto family = readFamily(text, u"test.lineara"_qs);
    return family.failed() ? family.failure().message.toStdString() : std::string();
}

inline QByteArray textOf(const ObjectContext& family)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    EXPECT_TRUE(writeFamily(family, buffer));
    return buffer.data();
}

/// What comes out when the text is read and written.
inline QByteArray rewritten(const QByteArray& text)
{
    return textOf(*loaded(text).context);
}

inline Person& personOf(const LoadedFamily& family, std::uint64_t number)
{
    return *family.context->person(RecordId{number});
}

inline std::vector<std::uint64_t> numbers(const OrderedSet<Person*>& persons)
{
    std::vector<std::uint64_t> result;
    for (const auto* one : persons)
        result.push_back(one->recordId().number);
    return result;
}

} // namespace lineara::test
