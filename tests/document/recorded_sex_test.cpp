// What an imported person's record says of its sex.

#include "kinship_records.h"
#include "model/object_context.h"
#include "recorded_sex.h"

#include <gtest/gtest.h>

namespace lineara {
namespace {

using kinship::Sex;

TEST(RecordedSex, IsThatOfThePersonsOwnLine)
{
    EXPECT_EQ(recordedSex("0 @I1@ INDI\n1 NAME Ada\n1 SEX F\n1 BIRT\n"), Sex::Female);
    EXPECT_EQ(recordedSex("0 @I1@ INDI\n1 SEX M\n"), Sex::Male);
    EXPECT_EQ(recordedSex("0 @I1@ INDI\n1 SEX m"), Sex::Male);
    EXPECT_EQ(recordedSex("0 @I1@ INDI\n \t1  SEX\tF \n"), Sex::Female);
}

TEST(RecordedSex, IsUnknownWhereNothingElseIsTold)
{
    for (const char* const record : {"", "SEX", "SEX M", "1 SEX", "1 SEX\n", "0 @I1@ INDI\n1 NAME Ada\n", "1 SEX U\n",
                                     "1 SEX X\n", "1 SEX MF\n", "1SEX M\n", "1 SEXM\n", "1 SEX\nM\n", "1 _SEX M\n"})
        EXPECT_EQ(recordedSex(record), Sex::Unknown) << record;
}

TEST(RecordedSex, IsNotThatOfAnythingBeneathOrBeside)
{
    EXPECT_EQ(recordedSex("0 @I1@ INDI\n1 FACT\n2 SEX M\n"), Sex::Unknown);
    EXPECT_EQ(recordedSex("0 @I1@ INDI\n11 SEX M\n"), Sex::Unknown);
    EXPECT_EQ(recordedSex("0 @I1@ INDI\n1 NOTE On page 1 SEX M\n"), Sex::Unknown);
    EXPECT_EQ(recordedSex("0 @I1@ INDI\n1 SEXY M\n1 NOTE SEX\n1 SEX F\n"), Sex::Female);
}

TEST(RecordedSex, IsTheFirstThatIsTold)
{
    EXPECT_EQ(recordedSex("1 SEX M\n1 SEX F\n"), Sex::Male);
    EXPECT_EQ(recordedSex("1 SEX U\n1 SEX F\n1 SEX M\n"), Sex::Female);
}

TEST(KinshipRecords, TellTheSexOfEachPersonAsTheFileDid)
{
    ObjectContext family;
    Pool& pool = family.insertPool();
    for (const char* const record : {"0 @I1@ INDI\n1 SEX F\n", "", "0 @I2@ INDI\n1 SEX M\n"}) {
        Person& person = family.insertPerson();
        pool.addPerson(person);
        if (*record)
            person.setSource(family.insertSource({QStringLiteral("a.ged"), 1}, record));
    }
    const KinshipRecords records(pool);
    const std::vector<Sex> sexes(records.sexes().begin(), records.sexes().end());
    EXPECT_EQ(sexes, (std::vector{Sex::Female, Sex::Unknown, Sex::Male}));
    EXPECT_EQ(records.checked().sexes.data(), records.sexes().data());
}

} // namespace
} // namespace lineara
