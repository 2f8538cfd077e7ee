#include "model/person.h"

#include "model/object_context.h"
#include "model/text_hygiene.h"

#include <QFile>

#include <utility>

namespace lineara {

namespace {

/// Empty, but never null, for a file that can't be read.
QByteArray bytesOf(const QString& fileName)
{
    QFile file(fileName);
    QByteArray bytes;
    if (file.open(QIODevice::ReadOnly))
        bytes = file.readAll();
    return bytes.isNull() ? QByteArray("") : bytes;
}

} // namespace

Person::Person(ObjectContext& context, RecordId recordId) : Record(context, Entity::Person, recordId) {}

Person::~Person() = default;

void Person::setName(std::optional<QString> name)
{
    context().setAttribute(*this, PersonAttribute::Name, writableText(std::move(name)));
}

void Person::setAdditional(std::optional<QString> notes)
{
    context().setAttribute(*this, PersonAttribute::Additional, writableText(std::move(notes)));
}

void Person::setBirthDay(std::optional<std::int32_t> day)
{
    context().setAttribute(*this, PersonAttribute::BirthDay, day);
}

void Person::setBirthMonth(std::optional<std::int32_t> month)
{
    context().setAttribute(*this, PersonAttribute::BirthMonth, month);
}

void Person::setBirthYear(std::optional<std::int32_t> year)
{
    context().setAttribute(*this, PersonAttribute::BirthYear, year);
}

void Person::setDeathDay(std::optional<std::int32_t> day)
{
    context().setAttribute(*this, PersonAttribute::DeathDay, day);
}

void Person::setDeathMonth(std::optional<std::int32_t> month)
{
    context().setAttribute(*this, PersonAttribute::DeathMonth, month);
}

void Person::setDeathYear(std::optional<std::int32_t> year)
{
    context().setAttribute(*this, PersonAttribute::DeathYear, year);
}

void Person::setGeneration(std::optional<std::int32_t> generation)
{
    context().setAttribute(*this, PersonAttribute::Generation, generation);
}

void Person::setX(std::optional<std::int32_t> x)
{
    context().setAttribute(*this, PersonAttribute::X, x);
}

QString Person::era() const
{
    const auto birth = values_.birthYear;
    const auto death = values_.deathYear;
    if (birth && death)
        return u"%1 - %2"_qs.arg(*birth).arg(*death);
    if (birth)
        return u"b.%1"_qs.arg(*birth);
    if (death)
        return u"d.%1"_qs.arg(*death);
    return u""_qs;
}

void Person::addChild(Person& child)
{
    context().link(Relationship::Children, *this, child);
}

void Person::removeChild(Person& child)
{
    context().unlink(Relationship::Children, *this, child);
}

void Person::addPartner(Person& partner)
{
    context().link(Relationship::Partners, *this, partner);
}

void Person::removePartner(Person& partner)
{
    context().unlink(Relationship::Partners, *this, partner);
}

void Person::disconnect()
{
    while (!partners_.empty())
        removePartner(*partners_[0]);
    while (!children_.empty())
        removeChild(*children_[0]);
    while (!parents_.empty())
        parents_[0]->removeChild(*this);
}

void Person::changePic(const QString& fileName)
{
    changePic(bytesOf(fileName));
}

void Person::changePic(QByteArray bytes)
{
    if (pic_) {
        pic_->setData(std::move(bytes));
        return;
    }
    // Filled before it is linked, so that the image changes once.
    Pic& pic = context().insertPic();
    pic.setData(std::move(bytes));
    context().link(Relationship::PersonPic, *this, pic);
}

void Person::removePic()
{
    if (pic_)
        context().remove(*pic_);
}

void Person::setSource(SourceRecord& source)
{
    context().link(Relationship::PersonSource, *this, source);
}

const std::optional<Picture>& Person::image() const
{
    static const std::optional<Picture> none;
    if (!pic_)
        return none;
    if (!image_)
        image_ = std::make_unique<std::optional<Picture>>(Picture::decode(pic_->data()));
    return *image_;
}

const std::vector<UnknownElement>& Person::unknown() const
{
    static const std::vector<UnknownElement> none;
    return unknown_ ? *unknown_ : none;
}

} // namespace lineara
