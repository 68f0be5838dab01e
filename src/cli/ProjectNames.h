#pragma once

#include <string>
#include <vector>

/// The projects of the workspace: the catalogue in its order, then folders that it does not name. Nothing is created.
std::vector<std::string> ProjectNames();
