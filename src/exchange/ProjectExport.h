#pragma once
// A project's folder as a file of another form: what the window and velumark-calc do alike.

#include "tables/CalcTables.h"

#include <string>
#include <vector>

/// The tables of the project in a folder, of which nothing is changed.
/// @throws ExchangeError where a load would not come to its end, FileError where a file cannot be read
Tables TablesOfProject(const std::string& folder);

/// @param folder  of the project  @param report  gains what is not carried
/// @throws ExchangeError, FileError
std::string ProjectAsLandXml(const std::string& folder, const std::string& name, std::vector<std::string>& report);
