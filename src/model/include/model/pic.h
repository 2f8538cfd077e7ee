#pragma once

#include "model/record.h"

#include <QByteArray>

#include <vector>

namespace lineara {

class Person;

/// The bytes of one person's picture, exactly as they were in the file that the user chose.
class Pic : public Record
{
public:
    const QByteArray& data() const { return data_; }
    bool hasData() const { return !data_.isNull(); }

    /// Replaces the bytes (one journalled change).
    void setData(QByteArray data);

    /// The person shown, or nullptr while the record belongs to nobody. Looks only; the context owns.
    Person* person() const { return person_; }

    const std::vector<UnknownElement>& unknown() const { return unknown_; }

private:
    friend class ObjectContext;
    friend class ContextLoader;
    friend class LinkSides;

    Pic(ObjectContext& context, RecordId recordId) : Record(context, Entity::Pic, recordId) {}

    QByteArray data_;
    Person* person_ = nullptr;
    std::vector<UnknownElement> unknown_;
};

} // namespace lineara
