#include "gedcom_export_changes.h"

#include "gedcom_export_person.h"
#include "gedcom_pointer.h"
#include "model/object_context.h"

#include <algorithm>
#include <array>

namespace lineara {
namespace {

/// Lines of a family record that say nothing about its members.
constexpr std::array<std::string_view, 7> silentTags = {"HUSB", "WIFE", "CHIL", "CHAN", "RIN", "_UID", "UID"};

bool isSpouseTag(std::string_view tag)
{
    return tag == "HUSB" || tag == "WIFE";
}

} // namespace

GedcomChanges::GedcomChanges(const FamilyContent& family, const ExportGraph& graph, const KeptRecords& kept,
                             GedcomDialect newRecords)
    : family_(family), graph_(graph), kept_(kept), dialect_(newRecords), xrefs_(kept), personXrefs_(graph.size()),
      personLines_(graph.size())
{}

Outcome<Done> GedcomChanges::find(const Progress& progress)
{
    constexpr double importedPart = 0.7;
    ExportLinks before;
    if (!kept_.isEmpty()) {
        const auto imported = kept_.imported(progress.stage(0, importedPart));
        if (imported.failed())
            return imported.failure();
        comparePersons(*imported.value());
        before = linksOf(*imported.value());
    }
    FamilyPlan plan(graph_, keptFamilies());
    plan.follow(before);
    applyFamilies(plan);
    strikePointers();
    return Done{};
}

void GedcomChanges::comparePersons(const ObjectContext& before)
{
    const auto persons = before.allPersons();
    const SharedNoteText sharedNote = [this](std::string_view xref) { return kept_.sharedNote(xref); };
    std::size_t next = 0;
    for (std::size_t record = 0; record < kept_.size(); ++record) {
        const auto person = kept_[record].person;
        if (!person)
            continue;
        const PersonValues& read = persons[next++]->values();
        PersonValues now = family_.persons()[*person].values.unpacked();
        now.generation = read.generation;
        now.x = read.x;
        if (now != read)
            changeValues(edit(record), read, now, sharedNote);
    }
}

ExportLinks GedcomChanges::linksOf(const ObjectContext& before) const
{
    std::unordered_map<const Person*, ExportPerson> places;
    const auto persons = before.allPersons();
    std::size_t next = 0;
    for (std::size_t record = 0; record < kept_.size(); ++record) {
        if (kept_[record].person)
            places.emplace(persons[next++], *kept_[record].person);
    }
    ExportLinks links;
    for (const Person* const person : persons) {
        const auto place = places.find(person);
        if (place == places.end())
            continue;
        const ExportPerson at = place->second;
        for (const Person* const partner : person->partners()) {
            if (const auto other = places.find(partner); other != places.end())
                links.partners.emplace_back(std::minmax(at, other->second));
        }
        for (const Person* const child : person->children()) {
            if (const auto other = places.find(child); other != places.end())
                links.offspring.emplace_back(at, other->second);
        }
    }
    links.sort();
    return links;
}

std::vector<FamilySheet> GedcomChanges::keptFamilies() const
{
    std::vector<FamilySheet> families;
    for (std::size_t record = 0; record < kept_.size(); ++record) {
        if (kept_[record].tag == "FAM")
            families.push_back(sheetOf(record));
    }
    return families;
}

FamilySheet GedcomChanges::sheetOf(std::size_t record) const
{
    FamilySheet sheet;
    sheet.record = record;
    sheet.canGrow = kept_.target(kept_[record].xref) == record;
    const EditedRecord lines = kept_.edited(record);
    for (const auto line : lines.children(0)) {
        const GedcomLine& read = lines[line];
        sheet.saysMore = sheet.saysMore || std::ranges::find(silentTags, read.tag) == silentTags.end();
        const bool isSpouse = isSpouseTag(read.tag);
        if (!read.isPointer || !(isSpouse || read.tag == "CHIL"))
            continue;
        const auto target = kept_.target(read.value);
        const auto person = target ? kept_[*target].person : std::nullopt;
        if (!target && leadsToARecord(read))
            ++(kept_.isMissed(record, read) ? sheet.missed : sheet.strangers);
        const auto isThere = [&](const FamilySheet::Member& spouse) { return spouse.person == person; };
        if (!person || (isSpouse && std::ranges::any_of(sheet.spouses, isThere)))
            continue;
        (isSpouse ? sheet.spouses : sheet.children).push_back({*person, line});
    }
    return sheet;
}

void GedcomChanges::applyFamilies(const FamilyPlan& plan)
{
    const auto& families = plan.families();
    std::vector<std::string> xrefs(families.size());
    for (std::size_t at = 0; at < families.size(); ++at) {
        const auto& sheet = families[at];
        if (sheet.record) {
            xrefs[at] = kept_[*sheet.record].xref;
            changeFamily(sheet);
            continue;
        }
        std::string wish(1, 'F');
        for (const auto& spouse : sheet.spouses) {
            wish += wish.size() > 1 ? "_" : "";
            wish += std::to_string(family_.persons()[spouse.person].id.number);
        }
        xrefs[at] = xrefs_.take(wish);
        addFamily(sheet, xrefs[at]);
    }
    for (const auto& claim : plan.claims()) {
        // Claims that name a family as others do mean the first of these.
        if (families[claim.family].canGrow)
            applyClaim(claim, xrefs[claim.family]);
    }
}

void GedcomChanges::changeFamily(const FamilySheet& sheet)
{
    if (sheet.isDropped) {
        dropped_.insert(*sheet.record);
        return;
    }
    const auto isNew = [](const FamilySheet::Member& member) { return !member.line; };
    const bool grows = std::ranges::any_of(sheet.spouses, isNew) || std::ranges::any_of(sheet.children, isNew);
    if (sheet.struckLines.empty() && !grows)
        return;
    EditedRecord& record = edit(*sheet.record);
    for (const std::size_t line : sheet.struckLines)
        record.strike(line);
    if (grows)
        addMembers(record, sheet);
}

void GedcomChanges::addMembers(EditedRecord& record, const FamilySheet& sheet)
{
    EditedRecord::Line spousePlace = 1;
    std::optional<EditedRecord::Line> childPlace;
    for (const auto line : record.children(0)) {
        if (isSpouseTag(record[line].tag))
            spousePlace = record.end(line);
        else if (record[line].tag == "CHIL")
            childPlace = record.end(line);
    }
    const auto roles = rolesOf(sheet);
    for (std::size_t at = 0; at < sheet.spouses.size(); ++at) {
        if (!sheet.spouses[at].line)
            record.insert(spousePlace, gedcomPointer(1, roles[at], xrefOf(sheet.spouses[at].person)));
    }
    for (const auto& child : sheet.children) {
        if (!child.line)
            record.insert(childPlace.value_or(spousePlace), gedcomPointer(1, "CHIL", xrefOf(child.person)));
    }
}

void GedcomChanges::addFamily(const FamilySheet& sheet, const std::string& xref)
{
    newFamilies_ += gedcomRecord(xref, "FAM");
    const auto roles = rolesOf(sheet);
    for (const std::string_view role : {"HUSB", "WIFE"}) {
        for (std::size_t at = 0; at < sheet.spouses.size(); ++at) {
            if (roles[at] == role)
                newFamilies_ += gedcomPointer(1, role, xrefOf(sheet.spouses[at].person));
        }
    }
    for (const auto& child : sheet.children)
        newFamilies_ += gedcomPointer(1, "CHIL", xrefOf(child.person));
}

/// Each role once: by the sex where it is known, else in their order.
std::vector<std::string> GedcomChanges::rolesOf(const FamilySheet& sheet) const
{
    const auto& spouses = sheet.spouses;
    if (spouses.empty())
        return {};
    if (spouses.size() == 1)
        return {sexOf(spouses[0].person) == 'F' ? "WIFE" : "HUSB"};
    std::vector<std::string> roles(spouses.size(), "WIFE");
    const auto isKeptHusband = [&](std::size_t at) {
        return spouses[at].line && kept_.edited(*sheet.record)[*spouses[at].line].tag == "HUSB";
    };
    for (std::size_t at = 0; at < spouses.size(); ++at) {
        if (spouses[at].line) {
            roles[0] = roles[1] = isKeptHusband(at) ? "WIFE" : "HUSB";
            roles[at] = isKeptHusband(at) ? "HUSB" : "WIFE";
            return roles;
        }
    }
    const bool isSecondHusband = sexOf(spouses[0].person) != sexOf(spouses[1].person) &&
                                 (sexOf(spouses[0].person) == 'F' || sexOf(spouses[1].person) == 'M');
    roles[isSecondHusband ? 1 : 0] = "HUSB";
    return roles;
}

/// 'F', 'M' or another letter.
char GedcomChanges::sexOf(ExportPerson person) const
{
    constexpr char unknown = 'U';
    const auto record = kept_.recordOf(person);
    if (!record)
        return unknown;
    const EditedRecord lines = kept_.edited(*record);
    const auto sex = lines.child(0, "SEX");
    return sex && !lines[*sex].value.empty() ? lines[*sex].value.front() : unknown;
}

void GedcomChanges::applyClaim(const FamilyClaim& claim, const std::string& family)
{
    const std::string_view tag = claim.isSpouse ? "FAMS" : "FAMC";
    if (claim.isAdded) {
        addToPerson(claim.person, gedcomPointer(1, tag, family));
        return;
    }
    const auto record = kept_.recordOf(claim.person);
    if (!record)
        return;
    EditedRecord& lines = edit(*record);
    for (const auto line : lines.children(0, tag)) {
        if (lines[line].isPointer && lines[line].value == family)
            lines.strike(line);
    }
}

void GedcomChanges::addToPerson(ExportPerson person, const std::string& line)
{
    const auto record = kept_.recordOf(person);
    if (!record) {
        personLines_[person] += line;
        return;
    }
    EditedRecord& lines = edit(*record);
    EditedRecord::Line place = lines.size();
    for (const auto at : lines.children(0)) {
        if (lines[at].tag == "FAMS" || lines[at].tag == "FAMC")
            place = lines.end(at);
    }
    lines.insert(place, line);
}

const std::string& GedcomChanges::xrefOf(ExportPerson person)
{
    std::string& xref = personXrefs_[person];
    if (!xref.empty())
        return xref;
    const auto record = kept_.recordOf(person);
    const bool hasOwn = record && kept_.target(kept_[*record].xref) == record;
    xref = hasOwn ? std::string(kept_[*record].xref) : nameNew(person);
    return xref;
}

/// A kept record that nothing could point at gets a name in its first line.
std::string GedcomChanges::nameNew(ExportPerson person)
{
    std::string xref = xrefs_.take(numberedXref('I', family_.persons()[person].id.number));
    if (const auto record = kept_.recordOf(person)) {
        EditedRecord& lines = edit(*record);
        lines.replace(0, gedcomRecord(xref, "INDI"));
    }
    return xref;
}

EditedRecord& GedcomChanges::edit(std::size_t record)
{
    const auto found = edited_.find(record);
    return found != edited_.end() ? found->second : edited_.emplace(record, kept_.edited(record)).first->second;
}

/// Only records that were there once are missed: pointers that never led anywhere stay.
bool GedcomChanges::leadsNowhere(std::size_t record, const GedcomLine& line) const
{
    if (!leadsToARecord(line))
        return false;
    const auto target = kept_.target(line.value);
    return target ? dropped_.contains(*target) : kept_.isMissed(record, line);
}

/// Whether one of its lines does.
bool GedcomChanges::leadsNowhere(std::size_t record) const
{
    bool found = false;
    forEachPointer(kept_[record].text, [&](const GedcomLine& line) { found = found || leadsNowhere(record, line); });
    return found;
}

void GedcomChanges::strikePointers()
{
    for (std::size_t record = 0; record < kept_.size(); ++record) {
        if (kept_[record].isLeftOut || dropped_.contains(record) || !leadsNowhere(record))
            continue;
        EditedRecord& lines = edit(record);
        for (EditedRecord::Line line = 1; line < lines.size(); ++line) {
            if (lines[line].level && leadsNowhere(record, lines[line]))
                lines.strike(line);
        }
    }
}

void GedcomChanges::finish()
{
    writeNewPersons();
    new_ += newFamilies_;
    for (auto& [record, lines] : edited_)
        texts_[record] = lines.result();
    edited_.clear();
    if (dialect_ == GedcomDialect::Seven && kept_.dialect() == GedcomDialect::Five)
        renameForSeven();
}

void GedcomChanges::renameForSeven()
{
    for (std::size_t record = 0; record < kept_.size(); ++record) {
        const std::string_view text = textOf(record);
        if (text.find('@') == std::string_view::npos)
            continue;
        const std::string_view xref = kept_[record].xref;
        const bool isUnique = xref.empty() || kept_.target(xref) == record;
        if (std::string renamed = xrefs_.inSeven(text, isUnique ? std::string_view() : xref); renamed != text)
            texts_[record] = std::move(renamed);
    }
    new_ = xrefs_.inSeven(new_);
}

void GedcomChanges::writeNewPersons()
{
    for (ExportPerson person = 0; person < graph_.size(); ++person) {
        if (kept_.recordOf(person))
            continue;
        const PersonValues values = family_.persons()[person].values.unpacked();
        new_ += newPersonRecord(xrefOf(person), values, dialect_) + personLines_[person];
    }
}

std::string_view GedcomChanges::textOf(std::size_t record) const
{
    if (kept_[record].isLeftOut || dropped_.contains(record))
        return {};
    const auto changed = texts_.find(record);
    return changed != texts_.end() ? std::string_view(changed->second) : kept_[record].text;
}

} // namespace lineara
