#pragma once
// Grade line and superelevation of a compiled road in the terms of LandXML.

#include "exchange/LandXml.h"
#include "tables/CalcTables.h"

#include <optional>
#include <vector>

/// Nothing where the road has no grade line of three points.
std::optional<landxml::Profile> ProfileOf(const Tables& tables);

bool SameProfiles(const std::optional<landxml::Profile>& a, const std::optional<landxml::Profile>& b);

/// The curves whose slopes go from a crown (both sides alike) to a full slope (one side up, one down, alike) and back.
std::vector<landxml::Superelevation> SuperelevationsOf(const Tables& tables);
bool SameSuperelevations(const std::vector<landxml::Superelevation>& a, const std::vector<landxml::Superelevation>& b);
