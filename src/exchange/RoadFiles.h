#pragma once
// A project as a value: the lines of its parameter files.

#include "tables/CalcTables.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

/// Lines by file name, UTF-8, without line ends.
using RoadFiles = std::map<std::string, std::vector<std::string>, std::less<>>;

/// What a load makes of them.
struct CompiledRoad {
    Tables tables;
    bool whole = false;  ///< false: a stake in a gap cut the load short, or a file has no comma in any line
};
CompiledRoad Compile(const RoadFiles& files);

/// The bytes of the files, code page 936, lines with CR LF. @throws ExchangeError where a character has no place there
std::map<std::string, std::string> BytesOf(const RoadFiles& files);
/// The lines of a project's folder, as far as its files stand. @throws FileError
RoadFiles ReadRoadFiles(const std::string& folder);

/// A text that can stand in a field and in the files: no comma, no line end, all of it in code page 936.
bool IsFieldText(const std::string& text);
