// Every function of numbers and texts on the number in a text that nobody would type.

#include "base/Numbers.h"
#include "base/RunTimeError.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    attempt([&] {
        const double value = ParseNumber(text);
        if (!std::isfinite(value)) std::abort();
        // Fifteen digits keep all but the last bits; the text of what they give is the same text.
        double back = value;
        if (attempt([&] { back = ParseNumber(NumText(value)); }) && NumText(back) != NumText(value)) std::abort();
        LeadingZeroText(value);
        FormatStake(value);
        FormatDmsOf(value);
        FormatDmsSeconds(value);
        DegToDms(value);
        DegToDms4(value);
        DmsToDeg(value);
        Azimuth(value, 1);
        Azimuth(1, value);
        attempt([&] { Distance(value, value); });
        attempt([&] { FormatFixed3(value); });
        attempt([&] { Round(value, 2); });
    });
    return 0;
}
