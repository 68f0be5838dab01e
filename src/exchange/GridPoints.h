#pragma once
// The rows of a result grid as points for instruments.

#include "base/GridText.h"
#include "exchange/FieldPoints.h"

#include <vector>

/// Rows with the columns X坐标 and Y坐标, named by their stake and side, with the road's height where a grade line
/// stands. @throws ExchangeError for a grid without coordinates
std::vector<FieldPoint> GridPoints(const GridText& grid, const Tables& tables);

/// What a file of that ending holds: .xlsx a workbook of the whole grid, else the points.
/// @throws ExchangeError, FileError
void SaveGridAs(const std::string& path, const std::string& title, const GridText& grid, const Tables& tables);
