#pragma once

#include "model/record.h"

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace lineara {

class Person;

/// Where a record of an imported genealogy stood.
struct SourceOrigin
{
    QString file;          ///< name of the imported file; records of one file share the text
    std::int32_t line = 0; ///< of the record's first line, counted from 1
    /// Cross-references to which its pointers led nowhere, parted and enclosed by @ ("@S9@N9@"), and the record's own
    /// if pointers at that did not mean it. Empty where there were none; null where none were noted.
    QByteArray dangling{};
    friend bool operator==(const SourceOrigin&, const SourceOrigin&) = default;
};

/// Which picture an import took for the person of a record, so that an export can tell what became of it.
struct TakenPicture
{
    QString file;    ///< the name of its file as the record gives it; empty if none of those that it names was there
    QByteArray hash; ///< SHA-256 of its bytes in hexadecimal digits; empty if it is not known
    friend bool operator==(const TakenPicture&, const TakenPicture&) = default;
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

    /// Null for records that name no picture of a person, and for those kept by versions that did not note it. Records
    /// may share it.
    const std::shared_ptr<const TakenPicture>& takenPicture() const { return takenPicture_; }
    /// For whoever makes the record: part of what it is from the beginning, and no change that could be undone.
    void setTakenPicture(std::shared_ptr<const TakenPicture> picture) { takenPicture_ = std::move(picture); }

    const std::vector<UnknownElement>& unknown() const;

private:
    friend class ObjectContext;
    friend class ContextLoader;
    friend class LinkSides;

    SourceRecord(ObjectContext& context, RecordId recordId, SourceOrigin origin, QByteArray text);

    QByteArray text_;
    SourceOrigin origin_;
    Person* person_ = nullptr;
    std::shared_ptr<const TakenPicture> takenPicture_;
    std::unique_ptr<std::vector<UnknownElement>> unknown_;
};

} // namespace lineara
