#pragma once
// A road of a LandXML file as a project of this program.

#include "exchange/LandXml.h"
#include "exchange/RoadFiles.h"
#include "exchange/Stations.h"

#include <string>
#include <vector>

struct ImportWishes {
    double shift = 0;                  ///< whole metres added to every station
    std::vector<StationBreak> breaks;  ///< chainage breaks that the file lacks, by back and ahead
};

struct ImportedRoad {
    RoadFiles files;
    std::vector<std::string> report;  ///< lines for a person, UTF-8
};

/// The road at `index` of the file. @throws ExchangeError where it cannot be one of this program
ImportedRoad ImportRoad(const landxml::File& file, std::size_t index, const ImportWishes& wishes);

/// The name of the file with the report, beside the parameters.
inline constexpr std::string_view kImportReport = "导入报告.txt";
