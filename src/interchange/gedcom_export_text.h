#pragma once

#include "gedcom_date.h"

#include <QString>

#include <cstdint>
#include <string>
#include <string_view>

namespace lineara {

// Replacing within a text moves the rest of it again and again, which is much for the longest ones; these don't.

/// The text with line feeds for all its line ends.
QString withLineFeeds(QStringView text);
/// The text with two @ signs for each.
QString withDoubledAts(QStringView text);
/// The text with one @ sign for every two beside each other.
QString withSingleAts(QStringView text);

/// The two ways of writing the lines of a genealogy.
enum class GedcomDialect : std::uint8_t
{
    Five, ///< 5.5.1: every @ is doubled, lines end after 255 characters, dates name their calendars in escapes
    Seven ///< 7.0: the first @ of a line is doubled, lines have any length
};

/// "level tag text" and its continuations, each line ended by LF. Line ends of any kind begin a CONT.
std::string gedcomLines(int level, std::string_view tag, QStringView text, GedcomDialect dialect);

/// "0 @xref@ tag", the first line of a record.
std::string gedcomRecord(std::string_view xref, std::string_view tag);

/// A letter and a number: a cross-reference by which a record may be named.
std::string numberedXref(char letter, std::uint64_t number);

std::string gedcomPointer(int level, std::string_view tag, std::string_view xref);

/// The value of a NAME line for the name as people write it. The surname stands between slashes where it can be told:
/// by `former`, the value that the line had, or else as the last of several words.
QString gedcomName(const QString& name, const QString& former = {});

/// The same for a line with a nickname below it. Where the name shows that only because readers put it in, it stays out
/// of the value, unless the name could not be read from it then.
QString changedName(const QString& name, const QString& former, const QString& nickname);

/// The value of a DATE line; empty if the date has nothing that a line can say.
QString gedcomDate(const GedcomDate& date, GedcomDialect dialect);

/// The same where there was a date already: its words stay ("ABT 12 MAR 1850") if only numbers of it are others.
QString changedDate(const QString& former, const GedcomDate& date, GedcomDialect dialect);

GedcomDate readDate(const QString& value);

bool saysSomething(const GedcomDate& date);
bool sameDay(const GedcomDate& a, const GedcomDate& b);

} // namespace lineara
