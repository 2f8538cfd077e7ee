#pragma once

#include "platform/outcome.h"
#include "raw_family.h"
#include "text_decoding.h"
#include "xml_fragment.h"

#include <QStringList>

#include <optional>
#include <string_view>

namespace lineara::store {

/// An "attribute" or "relationship" element: what its XML attributes say ("" where one is missing).
struct Member
{
    pugi::xml_node node;
    std::string_view name;
    std::string_view type;
    std::string_view destination;
    std::string_view references;
    std::string_view stranger; ///< an XML attribute that means nothing here
};

/// Receives the members of one object. `Unknown` leaves the member to be kept as it stands; a member that is known
/// but defective is reported by failing.
class MemberSink
{
public:
    enum class Verdict
    {
        Taken,
        Unknown,
        Failed
    };

    virtual ~MemberSink() = default;
    /// Takes a member that stands exactly as the writer writes it, if the sink knows a short way to do so. False leaves
    /// everything as it was, and the member to the other two.
    virtual bool takeAsWritten(pugi::xml_node) { return false; }
    virtual Verdict attribute(const Member& member) = 0;
    virtual Verdict relationship(const Member& member) = 0;
};

/// Walks over the members of one object after the other, and converts what they hold. Remembers the first defect.
class ObjectMembers
{
public:
    ObjectMembers(const XmlFragment& source, QStringList& repairs) : source_(source), repairs_(repairs) {}

    /// What later messages call the place.
    void enter(pugi::xml_node object, std::string_view id);

    /// Hands every member to the sink; comes back with the unknown ones, or with no value after a failure.
    std::optional<std::vector<UnknownElement>> read(MemberSink& sink);

    /// What the element says of itself.
    static Member member(pugi::xml_node node);

    /// The values of members. No value after a failure.
    std::optional<QString> text(const Member& member);
    std::optional<std::int32_t> int32(const Member& member);
    std::optional<QByteArray> binary(const Member& member);
    bool references(const Member& member, std::string_view entity, Lists<Number>& list);
    /// 0 if the member refers to nothing.
    std::optional<Number> reference(const Member& member, std::string_view entity);

    /// Always false, so that callers can return it.
    bool fail(pugi::xml_node node, const QString& reason);
    void repair(const QString& what);
    const QString& failure() const { return failure_; }

private:
    MemberSink::Verdict readMember(MemberSink& sink, pugi::xml_node node);
    bool hasType(const Member& member, std::string_view type);
    std::optional<DecodedText> decoded(const Member& member);
    std::optional<QByteArray> bytes(const Member& member);

    const XmlFragment& source_;
    QStringList& repairs_;
    pugi::xml_node object_;
    std::string_view id_;
    QString failure_;
};

/// A quoted piece of the file for a message, shortened if it is long.
QString shown(std::string_view text);

} // namespace lineara::store
