#include "family_reader.h"

#include "field_names.h"
#include "file_bytes.h"
#include "info_reader.h"
#include "record_reader.h"
#include "store_texts.h"
#include "xml_file.h"

namespace lineara::store {

namespace {

/// Reads the children of the root, which come in several fragments.
class ChildReader
{
public:
    ChildReader(const XmlFragment& fragment, QStringList& repairs)
        : fragment_(fragment), repairs_(repairs), records_(fragment, family_, repairs)
    {}

    /// Takes in what the fragment holds now.
    Outcome<Done> read()
    {
        for (auto node = fragment_.top().first_child(); node; node = node.next_sibling()) {
            if (auto taken = take(node); taken.failed())
                return taken;
        }
        return Done{};
    }

    bool hasInfo() const { return hasInfo_; }
    RawFamily family() && { return std::move(family_); }

private:
    Outcome<Done> take(pugi::xml_node node)
    {
        if (isElement(node, "object") && hasInfo_) {
            const bool isSound = records_.read(node, position_++);
            return isSound ? Outcome<Done>(Done{}) : Failure{records_.failure()};
        }
        if (isElement(node, infoName))
            return takeInfo(node);
        if (node.type() == pugi::node_element && !hasInfo_)
            return Failure{
                StoreTexts::tr("line %1: “databaseInfo” is missing at the beginning.").arg(fragment_.line(node))};
        const bool canBeKept =
            node.type() == pugi::node_element || node.type() == pugi::node_comment || node.type() == pugi::node_pi;
        if (!canBeKept)
            return Failure{StoreTexts::tr("object %1 of the file: stray text or a stray declaration stands before it.")
                               .arg(position_ + 1)};
        family_.unknownObjects.push_back({position_++, fragment_.verbatim(node)});
        return Done{};
    }

    Outcome<Done> takeInfo(pugi::xml_node node)
    {
        if (hasInfo_)
            return Failure{StoreTexts::tr("line %1: a second “databaseInfo”.").arg(fragment_.line(node))};
        hasInfo_ = true;
        if (node.first_attribute())
            repairs_ += StoreTexts::tr("The attributes of “databaseInfo” are left out when the file is saved.");
        return readInfo(fragment_, node, family_, repairs_);
    }

    const XmlFragment& fragment_;
    QStringList& repairs_;
    RawFamily family_;
    RecordReader records_;
    std::uint32_t position_ = 0;
    bool hasInfo_ = false;
};

} // namespace

Outcome<RawFamily> readText(std::string_view text, QStringList& repairs, const Progress& progress)
{
    auto file = XmlFile::open(text, rootName);
    if (file.failed())
        return file.failure();
    if (file.value().hasContentAroundRoot())
        repairs +=
            StoreTexts::tr("Comments outside “database” and attributes of it are left out when the file is saved.");
    XmlFragment fragment(text);
    ChildReader children(fragment, repairs);
    for (;;) {
        if (!progress.goesOn(file.value().partRead()))
            return stoppedReading();
        const auto more = file.value().next(fragment);
        if (more.failed())
            return more.failure();
        if (!more.value())
            break;
        if (auto read = children.read(); read.failed())
            return read.failure();
    }
    if (!children.hasInfo())
        return Failure{StoreTexts::tr("line %1: “databaseInfo” is missing.").arg(file.value().rootLine())};
    return std::move(children).family();
}

} // namespace lineara::store
