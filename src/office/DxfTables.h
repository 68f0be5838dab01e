#pragma once
// The TABLES section of a .dxf file.

#include "office/Drawing.h"
#include "office/DxfGroups.h"

/// Writes it: view, line types, layers, text styles, block records.
/// @param shown  what the view of the model space shows
/// @param h      the handles that other records name; the section takes more of them
void WriteDxfTables(DxfGroups& g, DxfHandles& h, const Drawing& drawing, const DrawingExtents& shown);
