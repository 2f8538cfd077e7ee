#pragma once

#include "member_verdicts.h"

namespace lineara::store {

/// Receives the members of a person: values and single references go into the person, links into the family's lists.
class PersonSink : public MemberSink
{
public:
    PersonSink(const XmlFragment& fragment, ObjectMembers& members, RawPerson& person, RawFamily& family)
        : members_(members), person_(person), family_(family), once_(members), written_(fragment, once_)
    {}

    bool takeAsWritten(pugi::xml_node node) override;
    Verdict attribute(const Member& member) override;
    Verdict relationship(const Member& member) override;

private:
    bool takeWritten(std::size_t slot, std::string_view rest);
    bool takeWrittenLinks(Lists<Number>& list, std::string_view rest);
    Verdict takeField(std::size_t field, const Member& member);

    Lists<Number>& linkList(std::size_t link);

    ObjectMembers& members_;
    RawPerson& person_;
    RawFamily& family_;
    OnceOnly once_;
    WrittenSlots written_;
};

} // namespace lineara::store
