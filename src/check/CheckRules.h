#pragma once
// Rules that several files share. Those that look at every row are steps: what they are given by reference must live
// until the steps are made.

#include "check/CheckRoad.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

/// Reports names of rows `first` to before `end` that stand there more than once.
void CheckDuplicates(std::shared_ptr<const CheckedFile> file, std::size_t first, std::size_t end, std::string what,
                     CheckSteps& steps, Findings& findings);
/// Reports stakes in these fields that a break skips.
void CheckGaps(std::shared_ptr<const CheckedFile> file, std::vector<std::size_t> fields, const CheckBreaks& breaks,
               CheckSteps& steps, Findings& findings);
/// Reports a stake that does not grow from `before` to `stake`. @param what  begins the text, 里程没有增大
void CheckGrows(const std::string& file, int line, int field, const std::string& what, double before, double stake,
                Findings& findings);
/// Reports what is left of the road before the field `first` of the first row and behind `last` of the last one.
void CheckCovers(const CheckedFile& file, std::size_t first, std::size_t last, const CheckedRoad& road,
                 const CheckBreaks& breaks, Findings& findings);
