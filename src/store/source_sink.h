#pragma once

#include "member_verdicts.h"

namespace lineara::store {

/// Receives the members of an imported record.
class SourceSink : public MemberSink
{
public:
    /// `lastOrigin` is the file of the record before, whose text this one shares if it is the same.
    SourceSink(const XmlFragment& fragment, ObjectMembers& members, RawSource& source, const QString& lastOrigin)
        : members_(members), source_(source), lastOrigin_(lastOrigin), once_(members), written_(fragment, once_)
    {}

    bool takeAsWritten(pugi::xml_node node) override;
    Verdict attribute(const Member& member) override;
    Verdict relationship(const Member& member) override;

private:
    bool takeWritten(std::size_t slot, std::string_view rest);
    void setOrigin(const QString& file);
    /// Most records have none.
    TakenPicture& takenPicture();

    ObjectMembers& members_;
    RawSource& source_;
    const QString& lastOrigin_;
    OnceOnly once_;
    WrittenSlots written_;
};

} // namespace lineara::store
