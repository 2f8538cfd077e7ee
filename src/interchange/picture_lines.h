#pragma once

#include "gedcom_export_kept.h"

#include <QString>

#include <cstddef>
#include <string_view>
#include <vector>

namespace lineara {

/// A file that a person's record names, itself or in a record that it points at.
struct PictureLine
{
    EditedRecord::Line object = 0; ///< in the person's record
    std::size_t record = 0;        ///< in which the FILE stands: the person's or the one pointed at
    EditedRecord::Line file = 0;   ///< in that record
    QString name;
    bool isPrimary = false;
    bool mayBePicture = false; ///< whether the import would look for it
};

/// The files in the order in which the import tries them as the person's picture.
std::vector<PictureLine> pictureLines(const KeptRecords& kept, std::size_t person);

bool isPictureTag(std::string_view tag);

/// All files that the objects of a record name, wherever in it they stand.
QStringList filesNamedIn(std::string_view record, GedcomDialect dialect);

} // namespace lineara
