#pragma once

#include "model/record.h"

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <memory>
#include <vector>

namespace lineara {

class Person;

/// Where a record of an imported genealogy stood.
struct SourceOrigin
{
    QString file;          ///< name of the imported file; records of one file share the text
    std::int32_t line = 0; ///< of the record's first line, counted from 1
    /// Cross-references to which its pointers led nowhere, parted and enclosed by @ ("@S9@N9@"). Empty where there were
    /// none; null where none were noted.
    QByteArray dangling{};
    friend bool operator==(const SourceOrigin&, const SourceOrigin&) = default;
};

/// A record of an imported genealogy, kept as it stood, so that it can be read and given back. Never changes.
class SourceRecord : public Record
{
public:
    ~SourceRecord() override;

    /// The record's lines in UTF-8, each ended by a line feed, that of level 0 first. Characters that no file can hold
    /// are replaced as in all texts of a family.
    const QByteArray& text() const { return text_; }
    const SourceOrigin& origin() const { return origin_; }

    /// The person that was made of it; nullptr for records of another kind (families, sources, the header). Looks only.
    Person* person() const { return person_; }

    const std::vector<UnknownElement>& unknown() const;

private:
    friend class ObjectContext;
    friend class ContextLoader;
    friend class LinkSides;

    SourceRecord(ObjectContext& context, RecordId recordId, SourceOrigin origin, QByteArray text);

    QByteArray text_;
    SourceOrigin origin_;
    Person* person_ = nullptr;
    std::unique_ptr<std::vector<UnknownElement>> unknown_;
};

} // namespace lineara
