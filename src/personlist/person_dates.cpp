#include "person_dates.h"

namespace lineara {

void storeBirth(Person& person, const PartialDate& date)
{
    person.setBirthDay(date.day);
    person.setBirthMonth(date.month);
    person.setBirthYear(date.year);
}

void storeDeath(Person& person, const PartialDate& date)
{
    person.setDeathDay(date.day);
    person.setDeathMonth(date.month);
    person.setDeathYear(date.year);
}

void overlay(PersonValues& values, const std::optional<PartialDate>& birth, const std::optional<PartialDate>& death)
{
    if (birth) {
        values.birthDay = birth->day;
        values.birthMonth = birth->month;
        values.birthYear = birth->year;
    }
    if (death) {
        values.deathDay = death->day;
        values.deathMonth = death->month;
        values.deathYear = death->year;
    }
}

} // namespace lineara
