#pragma once

#include "kinship/sex.h"

#include <QString>

#include <cstdint>

// The vocabulary of kinship in the language of the program: "mother" of a woman, "father" of a man, "parent" of
// somebody whose sex is not known. Generations count from 1, degrees too.
namespace lineara::kinTerms {

using kinship::Sex;

enum class Half : bool
{
    No,
    Yes
};

QString parent(std::uint32_t generations, Sex sex);
QString child(std::uint32_t generations, Sex sex);
QString sibling(Half isHalf, Sex sex);
/// One generation is the parent's.
QString aunt(std::uint32_t generations, Sex sex);
/// One generation is the child's.
QString niece(std::uint32_t generations, Sex sex);
QString cousin(std::uint32_t degree, Sex sex);
/// A cousin whose generation is `removed` above or below one's own.
QString removedCousin(std::uint32_t degree, std::uint32_t removed, bool isOlder, Sex sex);
/// "half cousin"
QString half(const QString& relative);

QString partner(Sex sex);
QString parentInLaw(Sex sex);
QString childInLaw(Sex sex);
QString siblingInLaw(Sex sex);
QString stepparent(Sex sex);
QString stepchild(Sex sex);
QString stepsibling(Sex sex);
/// "aunt by marriage"
QString byMarriage(const QString& relative);
/// "aunt of the husband"
QString ofPartner(const QString& relative, Sex partner);
/// "wife of a second cousin"
QString partnerOf(const QString& relative, Sex partner);

} // namespace lineara::kinTerms
