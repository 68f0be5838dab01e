#pragma once
// The compiled tables of the open project and the shared result fields: one value, `shared`, and the given names as
// references into it. Copy it to remember the state, compare it to prove what did not move, assign {} for a fresh
// start.

#include <array>
#include <cstdint>
#include <string>
#include <vector>

/// Upper index of the main-point arrays: row 0 is not used, rows 1 to 500 hold intersection points.
inline constexpr int kMaxMainPoint = 500;

struct Shared {
    using Column = std::vector<double>;

    // Route elements. Rows 0 to elemCount-1 are elements, row elemCount closes the last one.
    Column elemLc;               ///< continuous start stake, m
    Column elemX, elemY;         ///< start point, m (X north, Y east)
    Column elemFwj;              ///< start azimuth, packed dd.mmss, clockwise from north
    Column elemR1, elemR2;       ///< radius at start and end, m, positive turns right, 0 straight
    std::int16_t elemCount = 0;  ///< index of the closing row

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

    // Inputs and results of the engine.
    double inX = 0, inY = 0;    ///< target of gOutDist and XYToStake, m
    double inLc = 0;            ///< continuous stake of the last correction round of XYToStake, m
    double outX = 0, outY = 0;  ///< m
    double outFwj = 0;          ///< decimal degrees, not reduced to 0..360
    double outDist = 0;         ///< m
    std::string outLcText;      ///< UTF-8, K12+345.678
    std::string outOffsetText;  ///< UTF-8, 左1.234米, 右1.234米 or 中

    // What passes between screens.
    double stationX = 0, stationY = 0;          ///< instrument station, m
    double plStart = 0, plEnd = 0, plStep = 0;  ///< batch of structures, frmPl -> frmJgw, m
    bool plBatch = false;                       ///< from the OK of frmPl until its batch ends
    bool gridLeftDown = false;                  ///< the last mouse button pressed on an editor grid was the left one
    std::string pqxModel;                       ///< model text chosen in frmPqxSelect, UTF-8
    std::int16_t fhdxN = 0;  ///< number of traverse points of frmFhdx; a drawing leaves its loops' end

    bool operator==(const Shared&) const = default;
};

inline Shared shared;

inline constinit auto& gElemLc = shared.elemLc;
inline constinit auto& gElemX = shared.elemX;
inline constinit auto& gElemY = shared.elemY;
inline constinit auto& gElemFwj = shared.elemFwj;
inline constinit auto& gElemR1 = shared.elemR1;
inline constinit auto& gElemR2 = shared.elemR2;
inline constinit auto& gElemCount = shared.elemCount;
inline constinit auto& gDxdName = shared.dxdName;
inline constinit auto& gDxdX = shared.dxdX;
inline constinit auto& gDxdY = shared.dxdY;
inline constinit auto& gDxdCount = shared.dxdCount;
inline constinit auto& gDlBack = shared.dlBack;
inline constinit auto& gDlAhead = shared.dlAhead;
inline constinit auto& gDlCum = shared.dlCum;
inline constinit auto& gDlCount = shared.dlCount;
inline constinit auto& gHasDl = shared.hasDl;
inline constinit auto& gSqxLc = shared.sqxLc;
inline constinit auto& gSqxGc = shared.sqxGc;
inline constinit auto& gSqxR = shared.sqxR;
inline constinit auto& gSqxCount = shared.sqxCount;
inline constinit auto& gCgLc = shared.cgLc;
inline constinit auto& gCgA = shared.cgA;
inline constinit auto& gCgB = shared.cgB;
inline constinit auto& gCgC = shared.cgC;
inline constinit auto& gCgCount = shared.cgCount;
inline constinit auto& gCgType = shared.cgType;
inline constinit auto& gCgkdG = shared.cgkdG;
inline constinit auto& gCgkdC = shared.cgkdC;
inline constinit auto& gCgkdA = shared.cgkdA;
inline constinit auto& gCgkdB = shared.cgkdB;
inline constinit auto& gCgkdD = shared.cgkdD;
inline constinit auto& gCgkdE = shared.cgkdE;
inline constinit auto& gCgkdF = shared.cgkdF;
inline constinit auto& gCgkdCount = shared.cgkdCount;
inline constinit auto& gZdJd = shared.zdJd;
inline constinit auto& gZdT1 = shared.zdT1;
inline constinit auto& gZdT2 = shared.zdT2;
inline constinit auto& gZdLs1 = shared.zdLs1;
inline constinit auto& gZdLs2 = shared.zdLs2;
inline constinit auto& gZdZhLc = shared.zdZhLc;
inline constinit auto& gZdZhX = shared.zdZhX;
inline constinit auto& gZdZhY = shared.zdZhY;
inline constinit auto& gZdZhFwj = shared.zdZhFwj;
inline constinit auto& gZdHyLc = shared.zdHyLc;
inline constinit auto& gZdHyX = shared.zdHyX;
inline constinit auto& gZdHyY = shared.zdHyY;
inline constinit auto& gZdHyFwj = shared.zdHyFwj;
inline constinit auto& gZdYhLc = shared.zdYhLc;
inline constinit auto& gZdYhX = shared.zdYhX;
inline constinit auto& gZdYhY = shared.zdYhY;
inline constinit auto& gZdYhFwj = shared.zdYhFwj;
inline constinit auto& gZdHzLc = shared.zdHzLc;
inline constinit auto& gZdHzX = shared.zdHzX;
inline constinit auto& gZdHzY = shared.zdHzY;
inline constinit auto& gZdHzFwj = shared.zdHzFwj;
inline constinit auto& gZdCount = shared.zdCount;
inline constinit auto& gJdLc = shared.jdLc;
inline constinit auto& gJdX = shared.jdX;
inline constinit auto& gJdY = shared.jdY;
inline constinit auto& gJdLs1 = shared.jdLs1;
inline constinit auto& gJdLs2 = shared.jdLs2;
inline constinit auto& gJdR = shared.jdR;
inline constinit auto& gJdT1 = shared.jdT1;
inline constinit auto& gJdT2 = shared.jdT2;
inline constinit auto& gJdL = shared.jdL;
inline constinit auto& gInX = shared.inX;
inline constinit auto& gInY = shared.inY;
inline constinit auto& gInLc = shared.inLc;
inline constinit auto& gOutX = shared.outX;
inline constinit auto& gOutY = shared.outY;
inline constinit auto& gOutFwj = shared.outFwj;
inline constinit auto& gOutDist = shared.outDist;
inline constinit auto& gOutLcText = shared.outLcText;
inline constinit auto& gOutOffsetText = shared.outOffsetText;
inline constinit auto& gStationX = shared.stationX;
inline constinit auto& gStationY = shared.stationY;
inline constinit auto& gPlStart = shared.plStart;
inline constinit auto& gPlEnd = shared.plEnd;
inline constinit auto& gPlStep = shared.plStep;
inline constinit auto& gPlBatch = shared.plBatch;
inline constinit auto& gGridLeftDown = shared.gridLeftDown;
inline constinit auto& gPqxModel = shared.pqxModel;
inline constinit auto& gFhdxN = shared.fhdxN;
