#include "exchange/GaussKrueger.h"

#include "base/Lines.h"
#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "exchange/ExchangeError.h"

#include <GeographicLib/TransverseMercator.hpp>
#include <cmath>

LongitudeLatitude GaussKrueger::reverse(double x, double y) const
{
    static const GeographicLib::TransverseMercator projection(6378137, 1 / 298.257222101, 1);
    LongitudeLatitude place;
    projection.Reverse(meridian, y - falseEasting, x, place.lat, place.lon);
    return place;
}

GaussKrueger GaussKruegerOfText(const std::string& text)
{
    const auto fields = SplitFields(text);
    GaussKrueger projection;
    const bool read = !fields.empty() && fields.size() <= 2 && attempt([&] {
        projection.meridian = ParseNumber(fields[0]);
        if (fields.size() == 2) projection.falseEasting = ParseNumber(fields[1]);
    });
    if (!read || std::abs(projection.meridian) > 180)
        throw ExchangeError("“" + text + "”应是：中央子午线经度（度）[,东偏移]，例如 117 或 117,39500000");
    return projection;
}
