#pragma once

#include "migration_plan.h"
#include "object_members.h"
#include "reference_check.h"
#include "xml_writer.h"

#include <string_view>
#include <vector>

namespace lineara::store {

/// Turns one object after the other into what the newer version makes of it. What is not known goes through as it
/// stands, at its place; where the newer version gives its name a meaning, the name gets the older version's number
/// ("birthYear_12"). The first defect ends it.
class ObjectMigration
{
public:
    ObjectMigration(const XmlFragment& fragment, const MigrationPlan& plan, XmlWriter& out)
        : fragment_(fragment), plan_(plan), out_(out), members_(fragment, repairs_)
    {}

    /// False if the object is defective; see failure().
    bool write(pugi::xml_node object);

    /// To be asked after the last object: whether ids and references fit together.
    Outcome<Done> finish() { return references_.finish(); }

    const QString& failure() const { return members_.failure(); }

private:
    void writeStartTag(pugi::xml_node object, std::string_view type, std::string_view id, bool hasStranger);
    void writeStrangeObject(pugi::xml_node object, std::string_view type);
    bool writeMember(pugi::xml_node node);
    void writeStranger(pugi::xml_node node, std::string_view name, bool isKnownLater);
    void writeLine(const QByteArray& xml);

    bool writeRelationship(const PropertyPlan& property, const Member& member);
    bool writeAttribute(const PropertyPlan& property, const Member& member);
    bool writeDate(const PropertyPlan& property, const Member& member);
    bool isSound(const PropertyPlan& property, const Member& member);
    void takeOver(const PropertyPlan& property, const Member& member, const Product& product);
    void writeNumber(const std::string& name, std::int32_t number);

    const XmlFragment& fragment_;
    const MigrationPlan& plan_;
    XmlWriter& out_;
    QStringList repairs_; ///< told when the file is read, not here
    ObjectMembers members_;
    ReferenceCheck references_;

    // The object that is being written.
    Number number_ = 0;
    const EntityPlan* entity_ = nullptr;
    std::vector<bool> seen_; ///< by property
};

} // namespace lineara::store
