#pragma once
// From the stations of a file, which count on, to the nominal stakes of a project, with its chainage breaks.

#include "exchange/LandXml.h"
#include "tables/CalcTables.h"

#include <optional>
#include <string>
#include <vector>

/// A break at a point of the road.
struct StationBreak {
    double internal = 0;  ///< continuous stake, m
    double back = 0, ahead = 0;
};

class Stations {
public:
    /// @param more    breaks by the nominal stakes on both of their sides, in any order: they are added, and take the
    ///                place of one in the file that has the same ahead stake
    /// @param report  gains a line for each that took a place
    /// @throws ExchangeError where a break lies outside of the road, or its back stake is not what the file's own
    /// stations give
    Stations(const landxml::Alignment& road, double length, const std::vector<StationBreak>& more = {},
             std::vector<std::string>* report = nullptr);

    const std::vector<StationBreak>& breaks() const { return m_breaks; }
    /// The nominal stake that a project's file holds for a station: a load makes the same station of it again.
    /// Nothing on the second pass of an overlap, where a filed stake can't be read back.
    std::optional<double> nominal(double internal) const;
    /// At the end of a row that ends the road: as nominal(), but behind a break that lies at that very station.
    std::optional<double> nominalAtEnd(double internal) const;

private:
    bool readsBack(double nominal, double internal) const;

    std::vector<StationBreak> m_breaks;
    Tables m_tables;  // the breaks as a load compiles them
};

/// To a tenth of a nanometre, which drops what the sums of stations left in the last bits.
double TidyStation(double station);
