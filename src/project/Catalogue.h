#pragma once

#include <string>

/// The project catalogue gets a last line, one of its own whatever stands before. @param name  UTF-8
/// @throws FileError, and RunTimeError where the name has no place in the code page; the catalogue stays then
void appendToCatalogue(const std::string& name);
