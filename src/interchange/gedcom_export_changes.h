#pragma once

#include "gedcom_export_kept.h"
#include "gedcom_export_xrefs.h"

#include "platform/progress.h"

#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace lineara {

/// What of the kept records is to be written otherwise, and what is new.
class GedcomChanges
{
public:
    GedcomChanges(const FamilyContent& family, const ExportGraph& graph, const KeptRecords& kept,
                  GedcomDialect newRecords);

    /// Compares the family with what the import makes of the kept records. Fails if it is stopped, or if the
    /// kept records can't be told apart any more.
    Outcome<Done> find(const Progress& progress);

    /// The text of the record; empty if it is left out.
    std::string_view textOf(std::size_t record) const;
    /// Persons, then families, in the dialect that was asked for.
    const std::string& newRecords() const { return new_; }

    /// A kept record that is to be changed. After find(), before finish().
    EditedRecord& edit(std::size_t record);
    /// Adds a line to the record of a person, kept or new. After find(), before taking texts.
    void addToPerson(ExportPerson person, const std::string& line);
    /// Settles the texts; nothing may be added afterwards.
    void finish();
    /// Adds a record of its own.
    void addRecord(const std::string& lines) { new_ += lines; }
    const ExportGraph& graph() const { return graph_; }
    std::string takeXref(const std::string& wish) { return xrefs_.take(wish); }
    std::string nextXref(char letter) { return xrefs_.next(letter); }

private:
    std::vector<FamilySheet> keptFamilies() const;
    FamilySheet sheetOf(std::size_t record) const;
    void comparePersons(const ObjectContext& before);
    ExportLinks linksOf(const ObjectContext& before) const;
    void applyFamilies(const FamilyPlan& plan);
    void changeFamily(const FamilySheet& sheet);
    void addMembers(EditedRecord& record, const FamilySheet& sheet);
    void addFamily(const FamilySheet& sheet, const std::string& xref);
    void applyClaim(const FamilyClaim& claim, const std::string& family);
    std::vector<std::string> rolesOf(const FamilySheet& sheet) const;
    char sexOf(ExportPerson person) const;
    const std::string& xrefOf(ExportPerson person);
    std::string nameNew(ExportPerson person);
    void strikePointers();
    bool leadsNowhere(std::size_t record, const GedcomLine& line) const;
    bool leadsNowhere(std::size_t record) const;
    void writeNewPersons();
    void renameForSeven();

    const FamilyContent& family_;
    const ExportGraph& graph_;
    const KeptRecords& kept_;
    GedcomDialect dialect_;
    ExportXrefs xrefs_;
    std::unordered_map<std::size_t, EditedRecord> edited_;
    std::unordered_map<std::size_t, std::string> texts_;
    std::unordered_set<std::size_t> dropped_; ///< families
    std::vector<std::string> personXrefs_;    ///< empty where none was asked for
    std::vector<std::string> personLines_;    ///< below the records of new persons
    std::string newFamilies_;
    std::string new_;
};

} // namespace lineara
