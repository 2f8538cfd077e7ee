#include "gedcom_export_kept.h"

#include "gedcom_pointer.h"
#include "import_texts.h"
#include "told_family.h"

#include <algorithm>
#include <array>

namespace lineara {
namespace {

/// Of lines with these tags it is sure that they named a person.
constexpr std::array<std::string_view, 5> tagsOfPersons = {"HUSB", "WIFE", "CHIL", "ASSO", "ALIA"};

std::string_view viewOf(const QByteArray& bytes)
{
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

} // namespace

KeptRecords::KeptRecords(const FamilyContent& family, const ExportGraph& graph) : byPerson_(graph.size())
{
    const auto& sources = family.sources();
    hasGaps_ = !sources.empty() && sources.front().origin.line != 1;
    std::uint64_t next = 0;
    records_.reserve(sources.size());
    for (const auto& source : sources) {
        hasGaps_ = hasGaps_ || (next != 0 && source.id.number != next);
        next = source.id.number + 1;
        KeptRecord record;
        record.text = viewOf(source.text);
        knowsDangling_ = knowsDangling_ || !source.origin.dangling.isNull();
        if (const auto line = GedcomLineReader(record.text).next(); line && line->level == 0) {
            record.tag = line->tag;
            record.xref = line->xref;
        }
        if (!source.origin.dangling.isEmpty()) {
            auto dangling = parted(viewOf(source.origin.dangling));
            record.isDoubled = dangling.erase(record.xref) > 0;
            dangling_.emplace(records_.size(), std::move(dangling));
        }
        if (record.tag == "INDI" && source.person)
            record.person = graph.of(*source.person);
        record.isLeftOut = record.tag == "INDI" && !record.person;
        hasGaps_ = hasGaps_ || record.isLeftOut;
        if (record.person)
            byPerson_[*record.person] = records_.size();
        const bool isReachable = !record.xref.empty() && record.xref != pointsAtNobody;
        if (isReachable && !record.isLeftOut && !record.isDoubled)
            targets_.try_emplace(record.xref, records_.size());
        records_.push_back(record);
    }
    readVersion();
}

void KeptRecords::readVersion()
{
    for (std::size_t at = 0; at < records_.size(); ++at) {
        if (records_[at].tag != "HEAD")
            continue;
        const EditedRecord header = edited(at);
        const auto format = header.child(0, "GEDC");
        const auto version = format ? header.child(*format, "VERS") : std::nullopt;
        if (version)
            version_ = header.text(*version);
        break;
    }
    if (version_.startsWith(u'7'))
        dialect_ = GedcomDialect::Seven;
}

std::optional<std::size_t> KeptRecords::target(std::string_view xref) const
{
    const auto found = targets_.find(xref);
    return found == targets_.end() ? std::nullopt : std::optional(found->second);
}

/// Families of older versions of the program know of removed persons only that there were some.
bool KeptRecords::isMissed(std::size_t record, const GedcomLine& pointer) const
{
    if (!leadsToARecord(pointer) || target(pointer.value))
        return false;
    if (knowsDangling_) {
        const auto dangling = dangling_.find(record);
        return dangling == dangling_.end() || !dangling->second.contains(pointer.value);
    }
    return hasGaps_ && std::ranges::find(tagsOfPersons, pointer.tag) != tagsOfPersons.end();
}

std::set<std::string_view> KeptRecords::missedMembers() const
{
    std::set<std::string_view> missed;
    for (std::size_t record = 0; record < records_.size(); ++record) {
        if (records_[record].tag != "FAM")
            continue;
        forEachPointer(records_[record].text, [&](const GedcomLine& line) {
            const bool isMember = line.tag == "HUSB" || line.tag == "WIFE" || line.tag == "CHIL";
            if (isMember && isMissed(record, line))
                missed.insert(line.value);
        });
    }
    return missed;
}

QString KeptRecords::sharedNote(std::string_view xref) const
{
    const auto record = target(xref);
    if (!record || (records_[*record].tag != "NOTE" && records_[*record].tag != "SNOTE"))
        return {};
    return edited(*record).text(0);
}

/// A record that was doubled is not what pointers mean, even where the one that they mean is no more.
void KeptRecords::appendTo(QByteArray& text, const KeptRecord& record) const
{
    std::string_view lines = record.text;
    if (record.isDoubled && !target(record.xref)) {
        const auto before = static_cast<std::size_t>(record.xref.data() - lines.data()) - 1;
        text.append(lines.data(), static_cast<qsizetype>(before));
        lines.remove_prefix(before + record.xref.size() + 2);
    }
    text.append(lines.data(), static_cast<qsizetype>(lines.size()));
}

Outcome<std::unique_ptr<ObjectContext>> KeptRecords::imported(const Progress& progress) const
{
    // The records are UTF-8 by now, whatever the header says.
    QByteArray text = "\xEF\xBB\xBF"
                      "0 HEAD\n1 GEDC\n2 VERS " +
                      (version_.isEmpty() ? QByteArray("5.5.1") : version_.toUtf8()) + "\n1 CHAR UTF-8\n";
    std::size_t persons = 0;
    for (const KeptRecord& record : records_) {
        if (record.isLeftOut || record.tag == "HEAD")
            continue;
        appendTo(text, record);
        persons += record.person ? 1U : 0U;
    }
    for (const std::string_view xref : missedMembers()) {
        const std::string record = gedcomRecord(xref, "INDI");
        text.append(record.data(), static_cast<qsizetype>(record.size()));
        ++persons;
    }
    auto family = familyToldBy(std::move(text), ImportTexts::tr("the imported records"), progress);
    if (family.failed())
        return family.failure();
    if (family.value()->allPersons().size() != persons)
        return Failure{ImportTexts::tr("The imported records of this family can't be told apart any more. Save the "
                                       "family, and export what you imported from its own file.")};
    return family;
}

} // namespace lineara
