#pragma once
// What the right clicks of the main window and of the result grids do.

#include "exchange/LandXml.h"
#include "tables/CalcTables.h"

#include <QStringList>

#include <functional>

class MSFlexGrid;
class QWidget;

/// 导入…: asks for a LandXML file and for what the new project is called; the report is shown when it stands.
/// @param listed  runs when the catalogue has the name
void ImportProject(QWidget* caller, const std::function<void(const QString& name)>& listed);
/// 导出…: writes a project as LandXML or GeoJSON, whichever the chosen file's name says.
void ExportProject(QWidget* caller, const QString& project);

/// The entry 另存为… in the grid's right click menu.
void addSaveAs(MSFlexGrid& grid);
/// The entry 实测比较… for points against the open project.
void addComparison(MSFlexGrid& grid);
