// Every calculation screen with texts in its boxes that nobody would type, and every batch with a file that nobody
// would write. Handlers with a trap throw nothing; a sheet of what they made can be built. Input: see README.md.

#include "FuzzFolder.h"
#include "base/RunTimeError.h"
#include "office/Xls.h"
#include "screens/Columns.h"
#include "screens/DgdGc.h"
#include "screens/DgdZb.h"
#include "screens/Export.h"
#include "screens/Fs.h"
#include "screens/Jgw.h"
#include "screens/Pl.h"
#include "screens/PlGc.h"
#include "screens/Plfy.h"
#include "screens/Zdcs.h"
#include "support/Tables.h"
#include "tables/CalcTables.h"

#include <cstddef>
#include <cstdint>
#include <utility>

namespace {

/// A file dialog that picks the batch file.
struct PickingDialogs final : Dialogs {
    std::string path;
    bool box(const Msg&) override { return true; }
    void turn() override {}
    std::optional<std::string> openFile(std::string_view) override { return path; }
    std::optional<std::string> saveFile(std::string_view) override { return std::nullopt; }
};

/// A person who has no patience: long runs are abandoned.
struct HastyRows final : ResultTable {
    using ResultTable::ResultTable;
    int asked = 0;
    bool abandoned() override { return ++asked > 300; }
};

struct Screen {
    PlainRows grid;
    HastyRows rows{grid};
    ScreenState& state = rows.state;
    explicit Screen(std::span<const GridColumn> columns) : grid(Headers(columns)) {}
};

void road()
{
    shared = {};
    setElements({{1000, 5000, 3000, 30.1520, 0, 0},
                 {1100, 5086.4, 3050.4, 30.1520, 0, -250},
                 {1190, 5161, 3100, 19.4, -250, -250},
                 {1600, 5500, 3050, 305, 0, 0}});
    setBreaks({{1200, 1230}, {1500, 1490}});
    gDxdName = {"G1", "G2"};
    gDxdX = {5000, 5100};
    gDxdY = {3000, 3100};
    gDxdCount = 1;
    gSqxLc = {1000, 1180, 1600};
    gSqxGc = {100.5, 104, 108};
    gSqxR = {0, 3000, 0};
    gSqxCount = 2;
    gCgType = "0";
    gZdCount = 2;
}

/// The lines of the input, one box each; the last one again when they run out.
class Boxes {
public:
    explicit Boxes(const std::string& text)
    {
        std::string line;
        for (const char c : text + "\n")
            if (c == '\n')
                m_lines.push_back(std::exchange(line, {}));
            else
                line += c;
    }
    std::string next() { return m_at < m_lines.size() ? m_lines[m_at++] : m_lines.back(); }
    bool flag() { return next().size() % 2; }
    StationInput station()
    {
        const bool typed = flag();
        const std::string pick = next();
        return {typed, pick, pick == "G1" ? 0 : pick == "G2" ? 1 : -1, next(), next()};
    }

private:
    std::vector<std::string> m_lines;
    std::size_t m_at = 0;
};

void build(const ExportLayout& layout, const Screen& screen, const JgwStructures* structures = nullptr)
{
    attempt([&] { XlsBytes(ResultSheet(layout, {screen.grid.text(), screen.state.rows, "G1", structures})); });
}

void press(std::uint8_t screen, const std::string& text)
{
    Boxes box(text);
    Screen coordinates(kCoordinateColumns), inverse(kInverseColumns), height(kElevationColumns),
        heights(kElevationRunColumns), corners(kCornerColumns), points(kMainPointColumns);
    JgwStructures structures;
    switch (screen % 10) {
    case 0: {
        const std::string side = box.flag() ? "左边桩" : "右边桩";
        CalcDgdZb({box.next(), side, box.next(), box.flag(), box.next(), box.station()}, coordinates.rows);
        return build(kDgdZbExport, coordinates);
    }
    case 1:
        CalcPlfy({box.next(), box.next(), box.next(), box.next(), box.flag(), box.next(), box.station()},
                 coordinates.rows);
        return build(kPlfyExport, coordinates);
    case 2:
        attempt([&] { CalcFs({box.next(), box.next()}, inverse.rows); });
        return build(kFsExport, inverse);
    case 3: {
        const std::string side = box.flag() ? "左边桩" : "中桩";
        CalcDgdGc({box.next(), side, box.next(), box.next()}, height.rows);
        return build(kDgdGcExport, height);
    }
    case 4:
        CalcPlGc({box.next(), box.next(), box.next(), box.next(), box.next()}, heights.rows);
        return build(kPlGcExport, heights);
    case 5: {
        const JgwInput in{box.next(), box.flag(), box.next(), box.next(),   box.next(),
                          box.next(), box.flag(), box.next(), box.station()};
        if (CalcPl({box.next(), box.next(), box.next()}, in)) CalcJgw(in, structures, corners.rows);
        gPlBatch = false;
        CalcJgw(in, structures, corners.rows);
        return build(kJgwExport, corners, &structures);
    }
    case 6:
        CalcPlfyFile(coordinates.rows);
        return build(kPlfyExport, coordinates);
    case 7:
        CalcFsFile(inverse.rows);
        return build(kFsExport, inverse);
    case 8:
        CalcPlGcFile("", heights.rows);
        return build(kPlGcExport, heights);
    case 9:
        CalcJgwFile({.stake = {}, .kq = {}, .kh = {}, .zz = {}, .zy = {}, .skew = {}, .station = {}}, structures,
                    corners.rows);
        LoadZdcs(points.rows);
        build(kZdcsExport, points);
        return build(kJgwExport, corners, &structures);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0) return 0;
    static const FuzzFolder folder;
    static PickingDialogs dialogs;
    setDialogs(&dialogs);
    dialogs.path = gProjectFolder + "/batch.txt";
    const std::string text(reinterpret_cast<const char*>(data) + 1, size - 1);
    if (data[0] % 10 >= 6) folder.write("batch.txt", text);
    road();
    press(data[0], text);
    return 0;
}
