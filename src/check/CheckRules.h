#pragma once
// Rules that several files share.

#include "check/CheckRoad.h"

#include <cstddef>
#include <initializer_list>
#include <string>

/// Reports names of rows `first` to before `end` that stand there more than once.
void CheckDuplicates(const CheckedFile& file, std::size_t first, std::size_t end, const std::string& what,
                     Findings& findings);
/// Reports stakes in these fields that a break skips.
void CheckGaps(const CheckedFile& file, std::initializer_list<std::size_t> fields, const CheckBreaks& breaks,
               Findings& findings);
/// Reports a stake that does not grow from `before` to `stake`. @param what  begins the text, 里程没有增大
void CheckGrows(const std::string& file, int line, int field, const std::string& what, double before, double stake,
                Findings& findings);
/// Reports what is left of the road before the field `first` of the first row and behind `last` of the last one.
void CheckCovers(const CheckedFile& file, std::size_t first, std::size_t last, const CheckedRoad& road,
                 const CheckBreaks& breaks, Findings& findings);
