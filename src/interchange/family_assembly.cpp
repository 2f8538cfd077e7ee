#include "family_assembly.h"

#include "gedcom_pointer.h"
#include "import_notes.h"
#include "import_texts.h"

#include "engine/link_rules.h"

#include <algorithm>
#include <string>

namespace lineara {
namespace {

struct Refusal
{
    QString reason; ///< for any link
    QString why;    ///< for this one
};

Refusal refusalOf(engine::LinkVerdict verdict, const QString& parent, const QString& child)
{
    switch (verdict) {
    case engine::LinkVerdict::SamePerson:
        return {ImportTexts::tr("parents of themselves"),
                ImportTexts::tr("%1 can't be a parent of the same person").arg(parent)};
    case engine::LinkVerdict::TwoParents:
        return {ImportTexts::tr("third parents"),
                ImportTexts::tr("%1 would be a third parent of %2").arg(parent, child)};
    case engine::LinkVerdict::Cycle:
        return {ImportTexts::tr("parents among the own descendants"),
                ImportTexts::tr("%1 as a parent of %2 would be a descendant of %2").arg(parent, child)};
    case engine::LinkVerdict::Allowed:
        break;
    }
    return {};
}

} // namespace

FamilyAssembly::FamilyAssembly(const QUuid& uuid, std::size_t persons)
    : context_(std::make_unique<ObjectContext>(uuid)), pause_(std::in_place, context_->journal()),
      pool_(context_->insertPool())
{
    persons_.reserve(persons);
}

void FamilyAssembly::addPerson(PersonValues values, PictureReading picture)
{
    if (picture.taken)
        takenPictures_.emplace(static_cast<engine::PersonIndex>(persons_.size()), std::move(picture.taken));
    Person& person = context_->insertPerson(std::move(values));
    if (!picture.bytes.isNull())
        person.changePic(std::move(picture.bytes));
    pool_.addPerson(person);
    persons_.push_back(&person);
}

void FamilyAssembly::addPartners(const FamilyWishes& wishes, const Progress& progress)
{
    for (std::size_t couple = 0; couple < wishes.partners.size(); ++couple) {
        if (!progress.goesOn(couple, wishes.partners.size()))
            return;
        persons_[wishes.partners[couple].first]->addPartner(*persons_[wishes.partners[couple].second]);
    }
}

std::size_t FamilyAssembly::addOffspring(const FamilyWishes& wishes, const GedcomPersons& persons,
                                         const GedcomRecords& records, ImportNotes& notes, const Progress& progress)
{
    std::vector<engine::OffspringWish> asked;
    asked.reserve(wishes.offspring.size());
    for (const auto& wish : wishes.offspring)
        asked.push_back({wish.parent, wish.child});
    const auto verdicts = engine::judgeOffspring(persons.size(), asked);

    std::vector<FamilyWishes::Offspring> granted;
    granted.reserve(verdicts.size());
    for (std::size_t i = 0; i < verdicts.size() && progress.goesOn(i, verdicts.size()); ++i) {
        const FamilyWishes::Offspring& wish = wishes.offspring[i];
        if (verdicts[i] == engine::LinkVerdict::Allowed) {
            granted.push_back(wish);
            continue;
        }
        const Refusal refusal = refusalOf(verdicts[i], persons.label(wish.parent), persons.label(wish.child));
        const std::string pointer = '@' + std::string(records[persons.record(wish.child)].xref) + '@';
        notes.refused(
            wish.line, refusal.reason,
            ImportTexts::tr("%1 was refused: %2").arg(QStringLiteral("FAM.CHIL ") + inQuotes(pointer), refusal.why));
    }
    // Children stand in the order of the file, whichever of their families counts first.
    std::ranges::stable_sort(granted, {}, &FamilyWishes::Offspring::line);
    for (const auto& wish : granted)
        persons_[wish.parent]->addChild(*persons_[wish.child]);
    return granted.size();
}

void FamilyAssembly::keep(const GedcomRecords& records, const GedcomPersons& persons, const QString& file,
                          const Progress& progress)
{
    for (RecordIndex index = 0; index < records.size(); ++index) {
        if (!progress.goesOn(index, records.size()))
            return;
        const std::string_view text = records[index].text;
        QByteArray kept;
        kept.reserve(static_cast<qsizetype>(text.size()) + 1);
        kept.append(text.data(), static_cast<qsizetype>(text.size()));
        if (!kept.endsWith('\n'))
            kept.append('\n');
        SourceOrigin origin{file, static_cast<std::int32_t>(records[index].line), danglingPointers(records, index)};
        // None needs no words, but the first record tells that the others were looked at.
        if (index > 0 && origin.dangling.isEmpty())
            origin.dangling = QByteArray();
        SourceRecord& source = context_->insertSource(std::move(origin), std::move(kept));
        const auto person = persons.of(index);
        if (!person)
            continue;
        persons_[*person]->setSource(source);
        if (const auto taken = takenPictures_.find(*person); taken != takenPictures_.end())
            source.setTakenPicture(taken->second);
    }
}

} // namespace lineara
