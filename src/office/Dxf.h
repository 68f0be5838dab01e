#pragma once
// The .dxf file of a drawing, for programs that read the format of the year 2007 and later.

#include "office/Drawing.h"

#include <string>

/// The whole file. The same drawing gives the same bytes: no clock, no name of a user.
/// Texts are UTF-8, as that format has them, so that a point may bear any name.
std::string DxfBytes(const Drawing& drawing);
