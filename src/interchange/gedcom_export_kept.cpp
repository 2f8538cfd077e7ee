#include "gedcom_export_kept.h"

#include "import_texts.h"
#include "told_family.h"

namespace lineara {
namespace {

std::string_view viewOf(const QByteArray& bytes)
{
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

} // namespace

KeptRecords::KeptRecords(const FamilyContent& family, const ExportGraph& graph) : byPerson_(graph.size())
{
    std::uint64_t next = 0;
    records_.reserve(family.sources().size());
    for (const auto& source : family.sources()) {
        hasGaps_ = hasGaps_ || (next != 0 && source.id.number != next);
        next = source.id.number + 1;
        KeptRecord record;
        record.text = viewOf(source.text);
        if (const auto line = GedcomLineReader(record.text).next(); line && line->level == 0) {
            record.tag = line->tag;
            record.xref = line->xref;
        }
        if (record.tag == "INDI" && source.person)
            record.person = graph.of(*source.person);
        record.isLeftOut = record.tag == "INDI" && !record.person;
        hasGaps_ = hasGaps_ || record.isLeftOut;
        if (record.person)
            byPerson_[*record.person] = records_.size();
        if (!record.xref.empty() && !record.isLeftOut)
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

QString KeptRecords::sharedNote(std::string_view xref) const
{
    const auto record = target(xref);
    if (!record || (records_[*record].tag != "NOTE" && records_[*record].tag != "SNOTE"))
        return {};
    return edited(*record).text(0);
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
        text.append(record.text.data(), static_cast<qsizetype>(record.text.size()));
        persons += record.person ? 1U : 0U;
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
