#pragma once

#include "imported.h"

#include "gedzip_writing.h"
#include "interchange/gedcom_export.h"

#include <set>
#include <string>
#include <vector>

namespace lineara {

QByteArray exported(const ObjectContext& family, GedcomFormat format = GedcomFormat::Gedcom551);

/// The lines of a text that are not blank, without their ends.
std::vector<std::string> linesOf(const QByteArray& text);

/// What came and what went from one text to the other: "-1 NAME Ada", "+1 NAME Ada /Oak/", in order.
std::vector<std::string> difference(const QByteArray& before, const QByteArray& after);

/// Values of all persons in order, and their links by position: the same for families that are the same.
std::string familyText(const ObjectContext& family);

/// These records of 5.5.1 as a whole genealogy.
QByteArray versionFive(const QByteArray& records);

/// The lines of an export to 7.0 behind its header.
std::vector<std::string> inSeven(const ImportedFamily& family);

/// Expects the same family, and the same lines whenever it is exported to 7.0 again.
void expectToComeBack(const ImportedFamily& family);

/// The bytes of a small picture.
QByteArray png(Qt::GlobalColor colour);

QByteArray archiveOf(const QByteArray& genealogy, const ArchiveFiles& files);
QByteArray genealogyIn(const QByteArray& archive);

/// The bytes of a person's picture, or "none".
QByteArray pictureOf(const Person& person);

/// The bytes of a file among the data of the tests.
QByteArray dataFile(const QString& name);

} // namespace lineara
