#include "model/record.h"

#include "model/object_context.h"

#include <QStringBuilder>

#include <array>
#include <charconv>
#include <string_view>

namespace lineara {

namespace {

QStringView entityName(Entity entity)
{
    switch (entity) {
    case Entity::Pool:
        return u"Pool";
    case Entity::Person:
        return u"Person";
    case Entity::Pic:
        return u"Pic";
    case Entity::Source:
        return u"Source";
    }
    return {};
}

/// The decimal digits of a number, kept in place: comparing ids must not allocate.
class Digits
{
public:
    explicit Digits(std::uint64_t number) : end_(std::to_chars(text_.begin(), text_.end(), number).ptr) {}
    std::string_view view() const { return {text_.begin(), end_}; }

private:
    std::array<char, 20> text_{};
    const char* end_;
};

} // namespace

std::strong_ordering compareAsText(RecordId a, RecordId b)
{
    return Digits(a.number).view() <=> Digits(b.number).view();
}

QString Record::id() const
{
    const QString store = context_->storeUuid().toString(QUuid::WithoutBraces).toUpper();
    return u"x-lineara://" % store % u'/' % entityName(entity_) % u"/p" % QString::number(recordId_.number);
}

} // namespace lineara
