#pragma once

#include "model/changes.h"
#include "model/ordered_set.h"
#include "model/picture.h"
#include "model/record.h"

#include <QString>

#include <cstdint>
#include <memory>
#include <optional>
#include <variant>
#include <vector>

namespace lineara {

class LeafView;
class LinkLayer;
class Pic;
class Pool;
class SourceRecord;

/// The stored attributes of a person. Absent is a state of its own, distinct from 0 and from "".
struct PersonValues
{
    std::optional<QString> name = std::nullopt;
    std::optional<QString> additional = std::nullopt;
    std::optional<std::int32_t> birthDay = std::nullopt;
    std::optional<std::int32_t> birthMonth = std::nullopt;
    std::optional<std::int32_t> birthYear = std::nullopt;
    std::optional<std::int32_t> deathDay = std::nullopt;
    std::optional<std::int32_t> deathMonth = std::nullopt;
    std::optional<std::int32_t> deathYear = std::nullopt;
    std::optional<std::int32_t> generation = std::nullopt; ///< row; absent means row 0
    std::optional<std::int32_t> x = std::nullopt; ///< left edge of the node in points; absent until first placed
    friend bool operator==(const PersonValues&, const PersonValues&) = default;
};

/// The value of any one attribute of PersonValues.
using AttributeValue = std::variant<std::optional<std::int32_t>, std::optional<QString>>;

/// One person of a family. Owned by its context; every change goes through the context, which keeps both sides of a
/// link, reports the change and journals it. Main thread only.
class Person : public Record
{
public:
    ~Person() override;

    const PersonValues& values() const { return values_; }
    const std::optional<QString>& name() const { return values_.name; }
    const std::optional<QString>& additional() const { return values_.additional; }
    std::optional<std::int32_t> birthDay() const { return values_.birthDay; }
    std::optional<std::int32_t> birthMonth() const { return values_.birthMonth; }
    std::optional<std::int32_t> birthYear() const { return values_.birthYear; }
    std::optional<std::int32_t> deathDay() const { return values_.deathDay; }
    std::optional<std::int32_t> deathMonth() const { return values_.deathMonth; }
    std::optional<std::int32_t> deathYear() const { return values_.deathYear; }
    std::optional<std::int32_t> generation() const { return values_.generation; }
    std::optional<std::int32_t> x() const { return values_.x; }

    void setName(std::optional<QString> name);
    void setAdditional(std::optional<QString> notes);
    void setBirthDay(std::optional<std::int32_t> day);
    void setBirthMonth(std::optional<std::int32_t> month);
    void setBirthYear(std::optional<std::int32_t> year);
    void setDeathDay(std::optional<std::int32_t> day);
    void setDeathMonth(std::optional<std::int32_t> month);
    void setDeathYear(std::optional<std::int32_t> year);
    void setGeneration(std::optional<std::int32_t> generation);
    void setX(std::optional<std::int32_t> x);

    /// Life span as shown under the name: "", "1901 - 1968", "b.1901" or "d.1968".
    QString era() const;

    const OrderedSet<Person*>& parents() const { return parents_; }
    const OrderedSet<Person*>& children() const { return children_; }
    const OrderedSet<Person*>& partners() const { return partners_; }
    Pool* pool() const { return pool_; }
    Pic* pic() const { return pic_; }
    /// The imported record that the person was made of; nullptr for persons made here.
    SourceRecord* source() const { return source_; }

    /// Links and unlinks keep the other side; linking twice or unlinking strangers changes nothing and reports nothing.
    void addChild(Person& child);
    void removeChild(Person& child);
    void addPartner(Person& partner);
    void removePartner(Person& partner);

    /// Removes every partner, then every child, then every parent; done before the person is deleted.
    void disconnect();

    /// Reads the whole file and stores its bytes as the person's picture, in the Pic that is there or a new one.
    /// A file that can't be read gives an empty picture.
    void changePic(const QString& fileName);
    /// The same with bytes that are there already.
    void changePic(QByteArray bytes);

    /// Takes the picture away and deletes its record. Without a picture nothing happens.
    void removePic();

    /// Says which imported record the person was made of. The record goes with the person when that is removed.
    void setSource(SourceRecord& source);

    /// The picture made from the bytes of `pic`, decoded when first asked for; no value without a pic.
    const std::optional<Picture>& image() const;

    /// The person's node on the canvas, or nullptr. Set and owned by the canvas side.
    LeafView* leafView() const { return leafView_; }
    void setLeafView(LeafView* view) { leafView_ = view; }

    /// The link shapes that touch this person now. Kept and owned by the canvas side.
    std::vector<LinkLayer*>& linkLayers() { return linkLayers_; }
    const std::vector<LinkLayer*>& linkLayers() const { return linkLayers_; }

    /// Stops the walk up into this person; only markWillWalk() of the pool sets it.
    bool willWalk() const { return willWalk_; }
    void setWillWalk(bool value) { willWalk_ = value; }

    const std::vector<UnknownElement>& unknown() const;

private:
    friend class ObjectContext;
    friend class ContextLoader;
    friend class LinkSides;
    friend class Visit;
    friend struct JournalEntry;

    Person(ObjectContext& context, RecordId recordId);

    // What a walk over the family touches stands first, close together.
    bool willWalk_ = false;
    bool awake_ = false;                  // the awakening was called for this person
    mutable std::uint32_t visitNote_ = 0; // meaningful only to the walk that visitStamp_ names
    mutable std::uint32_t visitStamp_ = 0;
    OrderedSet<Person*> parents_;
    OrderedSet<Person*> children_;
    OrderedSet<Person*> partners_;
    PersonValues values_;
    Pool* pool_ = nullptr;
    Pic* pic_ = nullptr;
    SourceRecord* source_ = nullptr;
    LeafView* leafView_ = nullptr;
    std::vector<LinkLayer*> linkLayers_;
    mutable std::unique_ptr<std::optional<Picture>> image_; // made when first asked for
    std::unique_ptr<std::vector<UnknownElement>> unknown_;
};

} // namespace lineara
