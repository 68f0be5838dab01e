#pragma once
// The state of the program in three parts, one value, `shared`: the compiled tables of the open project, the results
// of the last engine call, what passes between windows. The given names are references into it. Copy it to remember
// the state, compare it to prove what did not move, assign {} for a fresh start. What computes is a function of
// `const Tables&` and its arguments; only the functions with given names store in `shared`.

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

/// Upper index of the main-point arrays: row 0 is not used, rows 1 to 500 hold intersection points.
inline constexpr int kMaxMainPoint = 500;

struct FastRoute;

/// What engine/FastRoute.h keeps of the elements. It follows from the columns, so that it takes no part in a
/// comparison.
struct KeptRoute {
    std::shared_ptr<const FastRoute> route;
    bool operator==(const KeptRoute&) const { return true; }
};

/// What a load compiled.
struct Tables {
    using Column = std::vector<double>;

    // Route elements. Rows 0 to elemCount-1 are elements, row elemCount closes the last one.
    Column elemLc;               ///< continuous start stake, m
    Column elemX, elemY;         ///< start point, m (X north, Y east)
    Column elemFwj;              ///< start azimuth, packed dd.mmss, clockwise from north
    Column elemR1, elemR2;       ///< radius at start and end, m, positive turns right, 0 straight
    std::int16_t elemCount = 0;  ///< index of the closing row
    KeptRoute fast;              ///< made from these rows by prepareRoute; none: the plain way

    // Traverse points, rows 0 to dxdCount.
    std::vector<std::string> dxdName;  ///< UTF-8
    Column dxdX, dxdY;                 ///< m
    std::int16_t dxdCount = 0;

    // Chainage breaks, rows 0 to dlCount, shifted by the amounts of the rows before.
    Column dlBack, dlAhead, dlCum;  ///< m; dlCum positive: jump, negative: overlap
    std::int16_t dlCount = 0;
    std::int16_t hasDl = 0;  ///< -1 once a break row has been read; nothing resets it

    // Vertical alignment, rows 0 to sqxCount.
    Column sqxLc, sqxGc, sqxR;  ///< continuous stake, elevation, vertical curve radius, m
    std::int16_t sqxCount = 0;

    // Superelevation, rows 0 to cgCount (the closing row).
    Column cgLc;      ///< continuous stake, m
    Column cgA, cgB;  ///< left and right cross slope, fraction
    Column cgC;       ///< side mark: 0, 1 or 2
    std::int16_t cgCount = 0;
    std::string cgType;  ///< "0" linear, "1" cubic parabola; until a load what frmSelectCg chose

    // Widths, rows 0 to cgkdCount (the closing row).
    Column cgkdG;         ///< continuous stake, m
    Column cgkdC;         ///< median width, m
    Column cgkdA, cgkdB;  ///< left and right formation width, m
    Column cgkdD, cgkdE;  ///< left and right shoulder width, m
    Column cgkdF;         ///< shoulder slope, fraction
    std::int16_t cgkdCount = 0;

    // Main points of the curves, rows 1 to zdCount; stakes in m, azimuths packed dd.mmss.
    static Column mainPoints() { return Column(kMaxMainPoint + 1); }
    std::vector<std::string> zdJd = std::vector<std::string>(kMaxMainPoint + 1);  ///< UTF-8
    Column zdT1 = mainPoints(), zdT2 = mainPoints(), zdLs1 = mainPoints(), zdLs2 = mainPoints();
    Column zdZhLc = mainPoints(), zdZhX = mainPoints(), zdZhY = mainPoints(), zdZhFwj = mainPoints();
    Column zdHyLc = mainPoints(), zdHyX = mainPoints(), zdHyY = mainPoints(), zdHyFwj = mainPoints();
    Column zdYhLc = mainPoints(), zdYhX = mainPoints(), zdYhY = mainPoints(), zdYhFwj = mainPoints();
    Column zdHzLc = mainPoints(), zdHzX = mainPoints(), zdHzY = mainPoints(), zdHzFwj = mainPoints();
    std::int16_t zdCount = 0;

    // Work arrays of the intersection-point compile, rows 0 to n.
    Column jdLc, jdX, jdY, jdLs1, jdLs2, jdR, jdT1, jdT2, jdL;

    bool operator==(const Tables&) const = default;
};

/// What the last engine call was asked and what it left.
struct EngineResults {
    double inX = 0, inY = 0;    ///< target of gOutDist and XYToStake, m
    double inLc = 0;            ///< continuous stake of the last correction round of XYToStake, m
    double outX = 0, outY = 0;  ///< m
    double outFwj = 0;          ///< decimal degrees, not reduced to 0..360
    double outDist = 0;         ///< m
    std::string outLcText;      ///< UTF-8, K12+345.678
    std::string outOffsetText;  ///< UTF-8, 左1.234米, 右1.234米 or 中

    bool operator==(const EngineResults&) const = default;
};

/// What passes between windows.
struct Session {
    double stationX = 0, stationY = 0;          ///< instrument station, m
    double plStart = 0, plEnd = 0, plStep = 0;  ///< batch of structures, frmPl -> frmJgw, m
    bool plBatch = false;                       ///< from the OK of frmPl until its batch ends
    bool gridLeftDown = false;                  ///< the last mouse button pressed on an editor grid was the left one
    std::string pqxModel;                       ///< model text chosen in frmPqxSelect, UTF-8
    std::int16_t fhdxN = 0;  ///< number of traverse points of frmFhdx; a drawing leaves its loops' end

    bool operator==(const Session&) const = default;
};

struct Shared {
    Tables tables;
    EngineResults results;
    Session session;

    bool operator==(const Shared&) const = default;
};

inline Shared shared;

inline constinit auto& gElemLc = shared.tables.elemLc;
inline constinit auto& gElemX = shared.tables.elemX;
inline constinit auto& gElemY = shared.tables.elemY;
inline constinit auto& gElemFwj = shared.tables.elemFwj;
inline constinit auto& gElemR1 = shared.tables.elemR1;
inline constinit auto& gElemR2 = shared.tables.elemR2;
inline constinit auto& gElemCount = shared.tables.elemCount;
inline constinit auto& gDxdName = shared.tables.dxdName;
inline constinit auto& gDxdX = shared.tables.dxdX;
inline constinit auto& gDxdY = shared.tables.dxdY;
inline constinit auto& gDxdCount = shared.tables.dxdCount;
inline constinit auto& gDlBack = shared.tables.dlBack;
inline constinit auto& gDlAhead = shared.tables.dlAhead;
inline constinit auto& gDlCum = shared.tables.dlCum;
inline constinit auto& gDlCount = shared.tables.dlCount;
inline constinit auto& gHasDl = shared.tables.hasDl;
inline constinit auto& gSqxLc = shared.tables.sqxLc;
inline constinit auto& gSqxGc = shared.tables.sqxGc;
inline constinit auto& gSqxR = shared.tables.sqxR;
inline constinit auto& gSqxCount = shared.tables.sqxCount;
inline constinit auto& gCgLc = shared.tables.cgLc;
inline constinit auto& gCgA = shared.tables.cgA;
inline constinit auto& gCgB = shared.tables.cgB;
inline constinit auto& gCgC = shared.tables.cgC;
inline constinit auto& gCgCount = shared.tables.cgCount;
inline constinit auto& gCgType = shared.tables.cgType;
inline constinit auto& gCgkdG = shared.tables.cgkdG;
inline constinit auto& gCgkdC = shared.tables.cgkdC;
inline constinit auto& gCgkdA = shared.tables.cgkdA;
inline constinit auto& gCgkdB = shared.tables.cgkdB;
inline constinit auto& gCgkdD = shared.tables.cgkdD;
inline constinit auto& gCgkdE = shared.tables.cgkdE;
inline constinit auto& gCgkdF = shared.tables.cgkdF;
inline constinit auto& gCgkdCount = shared.tables.cgkdCount;
inline constinit auto& gZdJd = shared.tables.zdJd;
inline constinit auto& gZdT1 = shared.tables.zdT1;
inline constinit auto& gZdT2 = shared.tables.zdT2;
inline constinit auto& gZdLs1 = shared.tables.zdLs1;
inline constinit auto& gZdLs2 = shared.tables.zdLs2;
inline constinit auto& gZdZhLc = shared.tables.zdZhLc;
inline constinit auto& gZdZhX = shared.tables.zdZhX;
inline constinit auto& gZdZhY = shared.tables.zdZhY;
inline constinit auto& gZdZhFwj = shared.tables.zdZhFwj;
inline constinit auto& gZdHyLc = shared.tables.zdHyLc;
inline constinit auto& gZdHyX = shared.tables.zdHyX;
inline constinit auto& gZdHyY = shared.tables.zdHyY;
inline constinit auto& gZdHyFwj = shared.tables.zdHyFwj;
inline constinit auto& gZdYhLc = shared.tables.zdYhLc;
inline constinit auto& gZdYhX = shared.tables.zdYhX;
inline constinit auto& gZdYhY = shared.tables.zdYhY;
inline constinit auto& gZdYhFwj = shared.tables.zdYhFwj;
inline constinit auto& gZdHzLc = shared.tables.zdHzLc;
inline constinit auto& gZdHzX = shared.tables.zdHzX;
inline constinit auto& gZdHzY = shared.tables.zdHzY;
inline constinit auto& gZdHzFwj = shared.tables.zdHzFwj;
inline constinit auto& gZdCount = shared.tables.zdCount;
inline constinit auto& gJdLc = shared.tables.jdLc;
inline constinit auto& gJdX = shared.tables.jdX;
inline constinit auto& gJdY = shared.tables.jdY;
inline constinit auto& gJdLs1 = shared.tables.jdLs1;
inline constinit auto& gJdLs2 = shared.tables.jdLs2;
inline constinit auto& gJdR = shared.tables.jdR;
inline constinit auto& gJdT1 = shared.tables.jdT1;
inline constinit auto& gJdT2 = shared.tables.jdT2;
inline constinit auto& gJdL = shared.tables.jdL;
inline constinit auto& gInX = shared.results.inX;
inline constinit auto& gInY = shared.results.inY;
inline constinit auto& gInLc = shared.results.inLc;
inline constinit auto& gOutX = shared.results.outX;
inline constinit auto& gOutY = shared.results.outY;
inline constinit auto& gOutFwj = shared.results.outFwj;
inline constinit auto& gOutDist = shared.results.outDist;
inline constinit auto& gOutLcText = shared.results.outLcText;
inline constinit auto& gOutOffsetText = shared.results.outOffsetText;
inline constinit auto& gStationX = shared.session.stationX;
inline constinit auto& gStationY = shared.session.stationY;
inline constinit auto& gPlStart = shared.session.plStart;
inline constinit auto& gPlEnd = shared.session.plEnd;
inline constinit auto& gPlStep = shared.session.plStep;
inline constinit auto& gPlBatch = shared.session.plBatch;
inline constinit auto& gGridLeftDown = shared.session.gridLeftDown;
inline constinit auto& gPqxModel = shared.session.pqxModel;
inline constinit auto& gFhdxN = shared.session.fhdxN;
