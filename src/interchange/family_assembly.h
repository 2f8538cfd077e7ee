#pragma once

#include "gedcom_families.h"
#include "gedcom_persons.h"
#include "person_pictures.h"

#include "model/object_context.h"

#include <QString>
#include <QUuid>

#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

namespace lineara {

class ImportNotes;

/// Makes the records of a family of what was read. Nothing of it is an undoable change.
class FamilyAssembly
{
public:
    FamilyAssembly(const QUuid& uuid, std::size_t persons);

    /// The next person of the file, who joins the family's one pool.
    void addPerson(PersonValues values, PictureReading picture);

    /// Not all if the progress is stopped meanwhile.
    void addPartners(const FamilyWishes& wishes, const Progress& progress);

    /// Returns the number of links made; the others are told. Not all if the progress is stopped meanwhile.
    std::size_t addOffspring(const FamilyWishes& wishes, const GedcomPersons& persons, const GedcomRecords& records,
                             ImportNotes& notes, const Progress& progress);

    /// Keeps every record of the file whole; `file` is how it is called. Not all if the progress is stopped meanwhile.
    void keep(const GedcomRecords& records, const GedcomPersons& persons, const QString& file,
              const Progress& progress);

    /// Whoever takes the family may let it go before this.
    std::unique_ptr<ObjectContext> finish() &&
    {
        pause_.reset();
        return std::move(context_);
    }

private:
    std::unique_ptr<ObjectContext> context_;
    std::optional<Journal::Pause> pause_;
    Pool& pool_;
    std::vector<Person*> persons_;
    std::unordered_map<engine::PersonIndex, std::shared_ptr<const TakenPicture>> takenPictures_;
};

} // namespace lineara
