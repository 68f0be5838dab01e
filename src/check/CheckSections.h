#pragma once
// The rules of the files that are read along the road: profile, superelevation, widths, side slopes, traverse points.
// They are steps: what they are given by reference must live until the steps are made.

#include "check/CheckRoad.h"

#include <memory>
#include <string>
#include <vector>

void CheckProfile(const std::string& folder, const CheckedRoad& road, const CheckBreaks& breaks, CheckSteps& steps,
                  Findings& findings);
/// @param form  of the transition, line 2 of the settings
void CheckSections(const std::string& folder, const std::string& form, const CheckedRoad& road,
                   const CheckBreaks& breaks, CheckSteps& steps, Findings& findings);
/// @param settings  the lines of 其他参数.txt, among them the numbers of grades
void CheckSlopes(const std::string& folder, const std::vector<std::string>& settings, CheckSteps& steps,
                 Findings& findings);
void CheckTraversePoints(std::shared_ptr<const CheckedFile> file, const CheckedRoad& road, CheckSteps& steps,
                         Findings& findings);
