#include "tag_labels.h"

#include <QCoreApplication>

#include <algorithm>
#include <iterator>

namespace lineara {
namespace {

struct TagTexts
{
    Q_DECLARE_TR_FUNCTIONS(TagTexts)
};

struct TagLabel
{
    const char* tag;
    const char* label;
};

// In the order of the tags, to be searched.
constexpr TagLabel tagLabels[] = {
    {"ABBR", QT_TRANSLATE_NOOP("TagTexts", "Abbreviation")},
    {"ADDR", QT_TRANSLATE_NOOP("TagTexts", "Address")},
    {"ADOP", QT_TRANSLATE_NOOP("TagTexts", "Adoption")},
    {"ADR1", QT_TRANSLATE_NOOP("TagTexts", "Address line")},
    {"ADR2", QT_TRANSLATE_NOOP("TagTexts", "Address line")},
    {"ADR3", QT_TRANSLATE_NOOP("TagTexts", "Address line")},
    {"AGE", QT_TRANSLATE_NOOP("TagTexts", "Age")},
    {"AGNC", QT_TRANSLATE_NOOP("TagTexts", "Agency")},
    {"ALIA", QT_TRANSLATE_NOOP("TagTexts", "Alias")},
    {"ANCI", QT_TRANSLATE_NOOP("TagTexts", "Interest in ancestors")},
    {"ANUL", QT_TRANSLATE_NOOP("TagTexts", "Annulment")},
    {"ASSO", QT_TRANSLATE_NOOP("TagTexts", "Associate")},
    {"AUTH", QT_TRANSLATE_NOOP("TagTexts", "Author")},
    {"BAPL", QT_TRANSLATE_NOOP("TagTexts", "Baptism (Latter-day Saints)")},
    {"BAPM", QT_TRANSLATE_NOOP("TagTexts", "Baptism")},
    {"BARM", QT_TRANSLATE_NOOP("TagTexts", "Bar mitzvah")},
    {"BASM", QT_TRANSLATE_NOOP("TagTexts", "Bat mitzvah")},
    {"BIRT", QT_TRANSLATE_NOOP("TagTexts", "Birth")},
    {"BLES", QT_TRANSLATE_NOOP("TagTexts", "Blessing")},
    {"BURI", QT_TRANSLATE_NOOP("TagTexts", "Burial")},
    {"CALN", QT_TRANSLATE_NOOP("TagTexts", "Call number")},
    {"CAST", QT_TRANSLATE_NOOP("TagTexts", "Caste")},
    {"CAUS", QT_TRANSLATE_NOOP("TagTexts", "Cause")},
    {"CENS", QT_TRANSLATE_NOOP("TagTexts", "Census")},
    {"CHAN", QT_TRANSLATE_NOOP("TagTexts", "Last change")},
    {"CHIL", QT_TRANSLATE_NOOP("TagTexts", "Child")},
    {"CHR", QT_TRANSLATE_NOOP("TagTexts", "Christening")},
    {"CHRA", QT_TRANSLATE_NOOP("TagTexts", "Christening as an adult")},
    {"CITY", QT_TRANSLATE_NOOP("TagTexts", "City")},
    {"CONF", QT_TRANSLATE_NOOP("TagTexts", "Confirmation")},
    {"CONL", QT_TRANSLATE_NOOP("TagTexts", "Confirmation (Latter-day Saints)")},
    {"COPR", QT_TRANSLATE_NOOP("TagTexts", "Copyright")},
    {"CORP", QT_TRANSLATE_NOOP("TagTexts", "Corporation")},
    {"CREA", QT_TRANSLATE_NOOP("TagTexts", "Record made")},
    {"CREM", QT_TRANSLATE_NOOP("TagTexts", "Cremation")},
    {"CROP", QT_TRANSLATE_NOOP("TagTexts", "Part of the picture")},
    {"CTRY", QT_TRANSLATE_NOOP("TagTexts", "Country")},
    {"DATA", QT_TRANSLATE_NOOP("TagTexts", "Data")},
    {"DATE", QT_TRANSLATE_NOOP("TagTexts", "Date")},
    {"DEAT", QT_TRANSLATE_NOOP("TagTexts", "Death")},
    {"DESI", QT_TRANSLATE_NOOP("TagTexts", "Interest in descendants")},
    {"DIV", QT_TRANSLATE_NOOP("TagTexts", "Divorce")},
    {"DIVF", QT_TRANSLATE_NOOP("TagTexts", "Divorce filed")},
    {"DSCR", QT_TRANSLATE_NOOP("TagTexts", "Description")},
    {"EDUC", QT_TRANSLATE_NOOP("TagTexts", "Education")},
    {"EMAIL", QT_TRANSLATE_NOOP("TagTexts", "E-mail")},
    {"EMIG", QT_TRANSLATE_NOOP("TagTexts", "Emigration")},
    {"ENDL", QT_TRANSLATE_NOOP("TagTexts", "Endowment (Latter-day Saints)")},
    {"ENGA", QT_TRANSLATE_NOOP("TagTexts", "Engagement")},
    {"EVEN", QT_TRANSLATE_NOOP("TagTexts", "Event")},
    {"EXID", QT_TRANSLATE_NOOP("TagTexts", "Outside identifier")},
    {"FACT", QT_TRANSLATE_NOOP("TagTexts", "Fact")},
    {"FAM", QT_TRANSLATE_NOOP("TagTexts", "Family")},
    {"FAMC", QT_TRANSLATE_NOOP("TagTexts", "Family as a child")},
    {"FAMS", QT_TRANSLATE_NOOP("TagTexts", "Family as a partner")},
    {"FAX", QT_TRANSLATE_NOOP("TagTexts", "Fax")},
    {"FCOM", QT_TRANSLATE_NOOP("TagTexts", "First communion")},
    {"FILE", QT_TRANSLATE_NOOP("TagTexts", "File")},
    {"FONE", QT_TRANSLATE_NOOP("TagTexts", "As it sounds")},
    {"FORM", QT_TRANSLATE_NOOP("TagTexts", "Format")},
    {"GIVN", QT_TRANSLATE_NOOP("TagTexts", "Given name")},
    {"GRAD", QT_TRANSLATE_NOOP("TagTexts", "Graduation")},
    {"HEAD", QT_TRANSLATE_NOOP("TagTexts", "Header")},
    {"HUSB", QT_TRANSLATE_NOOP("TagTexts", "Husband")},
    {"IDNO", QT_TRANSLATE_NOOP("TagTexts", "Identity number")},
    {"IMMI", QT_TRANSLATE_NOOP("TagTexts", "Immigration")},
    {"INDI", QT_TRANSLATE_NOOP("TagTexts", "Person")},
    {"INIL", QT_TRANSLATE_NOOP("TagTexts", "Initiatory (Latter-day Saints)")},
    {"LANG", QT_TRANSLATE_NOOP("TagTexts", "Language")},
    {"LATI", QT_TRANSLATE_NOOP("TagTexts", "Latitude")},
    {"LONG", QT_TRANSLATE_NOOP("TagTexts", "Longitude")},
    {"MAP", QT_TRANSLATE_NOOP("TagTexts", "Map")},
    {"MARB", QT_TRANSLATE_NOOP("TagTexts", "Banns")},
    {"MARC", QT_TRANSLATE_NOOP("TagTexts", "Marriage contract")},
    {"MARL", QT_TRANSLATE_NOOP("TagTexts", "Marriage licence")},
    {"MARR", QT_TRANSLATE_NOOP("TagTexts", "Marriage")},
    {"MARS", QT_TRANSLATE_NOOP("TagTexts", "Marriage settlement")},
    {"MEDI", QT_TRANSLATE_NOOP("TagTexts", "Medium")},
    {"MIME", QT_TRANSLATE_NOOP("TagTexts", "Format")},
    {"NAME", QT_TRANSLATE_NOOP("TagTexts", "Name")},
    {"NATI", QT_TRANSLATE_NOOP("TagTexts", "Nationality")},
    {"NATU", QT_TRANSLATE_NOOP("TagTexts", "Naturalization")},
    {"NCHI", QT_TRANSLATE_NOOP("TagTexts", "Number of children")},
    {"NICK", QT_TRANSLATE_NOOP("TagTexts", "Nickname")},
    {"NMR", QT_TRANSLATE_NOOP("TagTexts", "Number of marriages")},
    {"NO", QT_TRANSLATE_NOOP("TagTexts", "Did not happen")},
    {"NOTE", QT_TRANSLATE_NOOP("TagTexts", "Note")},
    {"NPFX", QT_TRANSLATE_NOOP("TagTexts", "Title before the name")},
    {"NSFX", QT_TRANSLATE_NOOP("TagTexts", "Addition after the name")},
    {"OBJE", QT_TRANSLATE_NOOP("TagTexts", "Picture or recording")},
    {"OCCU", QT_TRANSLATE_NOOP("TagTexts", "Occupation")},
    {"ORDN", QT_TRANSLATE_NOOP("TagTexts", "Ordination")},
    {"PAGE", QT_TRANSLATE_NOOP("TagTexts", "Page")},
    {"PEDI", QT_TRANSLATE_NOOP("TagTexts", "Relation to the parents")},
    {"PHON", QT_TRANSLATE_NOOP("TagTexts", "Telephone")},
    {"PHRASE", QT_TRANSLATE_NOOP("TagTexts", "In words")},
    {"PLAC", QT_TRANSLATE_NOOP("TagTexts", "Place")},
    {"POST", QT_TRANSLATE_NOOP("TagTexts", "Postal code")},
    {"PROB", QT_TRANSLATE_NOOP("TagTexts", "Probate")},
    {"PROP", QT_TRANSLATE_NOOP("TagTexts", "Property")},
    {"PUBL", QT_TRANSLATE_NOOP("TagTexts", "Publication")},
    {"QUAY", QT_TRANSLATE_NOOP("TagTexts", "Reliability")},
    {"REFN", QT_TRANSLATE_NOOP("TagTexts", "Reference number")},
    {"RELA", QT_TRANSLATE_NOOP("TagTexts", "Relation")},
    {"RELI", QT_TRANSLATE_NOOP("TagTexts", "Religion")},
    {"REPO", QT_TRANSLATE_NOOP("TagTexts", "Repository")},
    {"RESI", QT_TRANSLATE_NOOP("TagTexts", "Residence")},
    {"RESN", QT_TRANSLATE_NOOP("TagTexts", "Restriction")},
    {"RETI", QT_TRANSLATE_NOOP("TagTexts", "Retirement")},
    {"RIN", QT_TRANSLATE_NOOP("TagTexts", "Record number")},
    {"ROLE", QT_TRANSLATE_NOOP("TagTexts", "Role")},
    {"ROMN", QT_TRANSLATE_NOOP("TagTexts", "In Latin letters")},
    {"SDATE", QT_TRANSLATE_NOOP("TagTexts", "Date for sorting")},
    {"SEX", QT_TRANSLATE_NOOP("TagTexts", "Sex")},
    {"SLGC", QT_TRANSLATE_NOOP("TagTexts", "Sealing to the parents (Latter-day Saints)")},
    {"SLGS", QT_TRANSLATE_NOOP("TagTexts", "Sealing to a partner (Latter-day Saints)")},
    {"SNOTE", QT_TRANSLATE_NOOP("TagTexts", "Note")},
    {"SOUR", QT_TRANSLATE_NOOP("TagTexts", "Source")},
    {"SPFX", QT_TRANSLATE_NOOP("TagTexts", "Word before the surname")},
    {"SSN", QT_TRANSLATE_NOOP("TagTexts", "Social security number")},
    {"STAE", QT_TRANSLATE_NOOP("TagTexts", "State")},
    {"STAT", QT_TRANSLATE_NOOP("TagTexts", "Status")},
    {"SUBM", QT_TRANSLATE_NOOP("TagTexts", "Submitter")},
    {"SURN", QT_TRANSLATE_NOOP("TagTexts", "Surname")},
    {"TEMP", QT_TRANSLATE_NOOP("TagTexts", "Temple")},
    {"TEXT", QT_TRANSLATE_NOOP("TagTexts", "Text")},
    {"TIME", QT_TRANSLATE_NOOP("TagTexts", "Time")},
    {"TITL", QT_TRANSLATE_NOOP("TagTexts", "Title")},
    {"TRAN", QT_TRANSLATE_NOOP("TagTexts", "Translation")},
    {"TYPE", QT_TRANSLATE_NOOP("TagTexts", "Kind")},
    {"UID", QT_TRANSLATE_NOOP("TagTexts", "Identifier")},
    {"VERS", QT_TRANSLATE_NOOP("TagTexts", "Version")},
    {"WIFE", QT_TRANSLATE_NOOP("TagTexts", "Wife")},
    {"WILL", QT_TRANSLATE_NOOP("TagTexts", "Will")},
    {"WWW", QT_TRANSLATE_NOOP("TagTexts", "Web page")},
    {"_FREL", QT_TRANSLATE_NOOP("TagTexts", "Relation to the father")},
    {"_MREL", QT_TRANSLATE_NOOP("TagTexts", "Relation to the mother")},
};

static_assert(std::is_sorted(std::begin(tagLabels), std::end(tagLabels),
                             [](const TagLabel& a, const TagLabel& b) { return std::string_view(a.tag) < b.tag; }));

} // namespace

QString tagLabel(std::string_view tag)
{
    const auto found =
        std::lower_bound(std::begin(tagLabels), std::end(tagLabels), tag,
                         [](const TagLabel& entry, std::string_view wanted) { return entry.tag < wanted; });
    if (found == std::end(tagLabels) || found->tag != tag)
        return QString::fromUtf8(tag.data(), static_cast<qsizetype>(tag.size()));
    return TagTexts::tr(found->label);
}

} // namespace lineara
