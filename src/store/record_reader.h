#pragma once

#include "object_members.h"

namespace lineara::store {

/// Reads one "object" element after the other into a family. The first defect ends the reading.
class RecordReader
{
public:
    RecordReader(const XmlFragment& fragment, RawFamily& family, QStringList& repairs)
        : fragment_(fragment), family_(family), members_(fragment, repairs)
    {}

    /// `position` is the place among the objects of the file. False if the object is defective; see failure().
    bool read(pugi::xml_node object, std::uint32_t position);

    const QString& failure() const { return members_.failure(); }

private:
    /// The number of an object whose start tag stands as the writer writes it, and is entered; or no value.
    std::optional<Number> enterWritten(const std::string& tag, pugi::xml_node object);
    bool readAnyObject(pugi::xml_node object, std::uint32_t position);
    bool readPerson(Number number);
    bool readPool(Number number);
    bool readPic(Number number);
    bool readSource(Number number);

    const XmlFragment& fragment_;
    RawFamily& family_;
    ObjectMembers members_;
    QString lastOrigin_; ///< of the imported record before: files name few, and many records share one
};

} // namespace lineara::store
