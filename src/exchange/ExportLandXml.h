#pragma once
// A project as a LandXML 1.2 file: standard elements for everybody, and beside them the lines of the parameter files,
// which ImportRoad prefers where both say the same.

#include "exchange/RoadFiles.h"

#include <ctime>
#include <string>
#include <vector>

struct LandXmlRoad {
    std::string name;  ///< of the project and of its alignment
    const RoadFiles& files;
    const Tables& tables;                        ///< what a load makes of the files
    std::time_t written = 0;                     ///< newest parameter file: one road gives one file
    std::vector<std::string>* report = nullptr;  ///< gains a line for each thing that the standard has no place for
};

/// UTF-8, metric, azimuths by points alone; every number is the shortest text that reads back to the same bits.
/// @throws ExchangeError where the road has no alignment, or its stakes run backward
std::string LandXmlText(const LandXmlRoad& road);
