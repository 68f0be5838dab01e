// LandXML files and lists of measured points from any bytes: a message or a road that loads, never a crash.

#include "exchange/ExchangeError.h"
#include "exchange/FieldFile.h"
#include "exchange/Import.h"

#include <cstdint>
#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    for (const char* path : {"a.csv", "a.gsi"}) {
        try {
            ReadMeasured(path, bytes);
        } catch (const ExchangeError&) {
        }
    }
    try {
        const auto file = landxml::File::fromBytes(bytes);
        for (std::size_t i = 0; i < file.alignments().size() && i < 4; ++i) {
            const auto road = ImportRoad(file, i, {.shift = 1000, .breaks = {}});
            if (!Compile(road.files).whole) std::abort();  // what an import makes can be opened
        }
    } catch (const ExchangeError&) {
    }
    return 0;
}
