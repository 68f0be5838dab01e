#include "engine/Chainage.h"

#include "base/RunTimeError.h"
#include "support/Tables.h"
#include "tables/CalcTables.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace {

constexpr double G = std::numeric_limits<double>::infinity();  // the stake lies in a gap

/// What a typed stake becomes for each rule. Worked out by hand: above each table stands what its breaks do.
struct Stakes {
    double typed;
    double dgdZb, dgdGc, batchStart, batchEnd, fileLine, tableRow, blockEditor;
};
const struct {
    const ResolveRule& rule;
    double Stakes::*column;
    const char* name;
} kColumns[] = {
    {kDgdZb, &Stakes::dgdZb, "dgdZb"},
    {kDgdGc, &Stakes::dgdGc, "dgdGc"},
    {kBatchStart, &Stakes::batchStart, "start"},
    {kBatchEnd, &Stakes::batchEnd, "end"},
    {kFileLine, &Stakes::fileLine, "file"},
    {kTableRow, &Stakes::tableRow, "row"},
    {kBlockEditor, &Stakes::blockEditor, "block editor"},
};
/// What a continuous stake becomes on the way back.
struct Nominal {
    double continuous, nominal;
    bool secondPass;
};

// clang-format off
// No breaks: every map is the identity but for the absolute value of the single-point screens.
const Stakes kNone[] = {
    // typed     DgdZb    DgdGc    start    end      file     row      block editor
    {   99.5,    99.5,    99.5,    99.5,    99.5,    99.5,    99.5,    99.5},
    {    100,     100,     100,     100,     100,     100,     100,     100},
    {  100.5,   100.5,   100.5,   100.5,   100.5,   100.5,   100.5,   100.5},
    {  -99.5,    99.5,    99.5,   -99.5,   -99.5,   -99.5,   -99.5,   -99.5},
    {   -100,     100,     100,    -100,    -100,    -100,    -100,    -100},
    { -100.5,   100.5,   100.5,  -100.5,  -100.5,  -100.5,  -100.5,  -100.5},
};

const Nominal kBackNone[] = {
    { 99.5,  99.5, false}, {  100,   100, false}, {100.5, 100.5, false},
};

// A jump of 20 from 100 to 120. First pass: up to 100 as typed, 120 and more less 20, between them a gap; the block
// editor leaves 120 itself alone. Minus sign: the single-point screens take another 20 off |t| >= 120; the elevation
// screen finds -t at no ahead stake and refuses; the others start at t, which is below 100, and take 20 off it once
// |t| > 120 (the end of a batch: >=).
const Stakes kJump[] = {
    // typed     DgdZb    DgdGc    start    end      file     row      block editor
    {   99.5,    99.5,    99.5,    99.5,    99.5,    99.5,    99.5,    99.5},
    {    100,     100,     100,     100,     100,     100,     100,     100},
    {  100.5,       G,       G,       G,       G,       G,       G,       G},
    {  119.5,       G,       G,       G,       G,       G,       G,       G},
    {    120,     100,     100,     100,     100,     100,     100,     120},
    {  120.5,   100.5,   100.5,   100.5,   100.5,   100.5,   100.5,   100.5},
    {  -99.5,    99.5,    99.5,   -99.5,   -99.5,   -99.5,   -99.5,   -99.5},
    {   -100,     100,     100,    -100,    -100,    -100,    -100,    -100},
    { -100.5,       G,       G,  -100.5,  -100.5,  -100.5,  -100.5,  -100.5},
    { -119.5,       G,       G,  -119.5,  -119.5,  -119.5,  -119.5,  -119.5},
    {   -120,      80,       G,    -120,    -140,    -120,    -120,    -120},
    { -120.5,    80.5,       G,  -140.5,  -140.5,  -140.5,  -140.5,  -120.5},
};

const Nominal kBackJump[] = {
    { 79.5,  79.5, false}, {   80,    80, false}, { 80.5,  80.5, false},
    { 99.5,  99.5, false}, {  100,   100, false}, {100.5, 120.5, false},
    {119.5, 139.5, false}, {  120,   140, false}, {120.5, 140.5, false},
};

// An overlap of 20 from 200 back to 180. First pass: beyond 200 plus 20. Minus sign: |t| >= 180 plus 20 once more,
// which is the second reading up to 200; others start at t and come 20 nearer to zero; the block editor mirrors
// 180..200 and adds 20.
const Stakes kOverlap[] = {
    // typed     DgdZb    DgdGc    start    end      file     row      block editor
    {  179.5,   179.5,   179.5,   179.5,   179.5,   179.5,   179.5,   179.5},
    {    180,     180,     180,     180,     180,     180,     180,     180},
    {  180.5,   180.5,   180.5,   180.5,   180.5,   180.5,   180.5,   180.5},
    {  199.5,   199.5,   199.5,   199.5,   199.5,   199.5,   199.5,   199.5},
    {    200,     200,     200,     200,     200,     200,     200,     200},
    {  200.5,   220.5,   220.5,   220.5,   220.5,   220.5,   220.5,   220.5},
    { -179.5,   179.5,   179.5,  -179.5,  -179.5,  -179.5,  -179.5,  -179.5},
    {   -180,     200,     200,    -180,    -160,    -180,    -180,    -180},
    { -180.5,   200.5,   200.5,  -160.5,  -160.5,  -160.5,  -160.5,   200.5},
    { -199.5,   219.5,   219.5,  -179.5,  -179.5,  -179.5,  -179.5,   219.5},
    {   -200,     220,     220,    -180,    -180,    -180,    -180,     220},
    { -200.5,   240.5,       G,  -180.5,  -180.5,  -180.5,  -180.5,  -200.5},
};

const Nominal kBackOverlap[] = {
    {179.5, 179.5, false}, {  180,   180, false}, {180.5, 180.5, false},
    {199.5, 199.5, false}, {  200,   200, false}, {200.5, 180.5, true },
    {219.5, 199.5, true }, {  220,   200, true }, {220.5, 200.5, false},
};

// A jump of 20 from 100 to 120, then an overlap of 30 from 300 back to 270; the second row is kept as 280 and 250, 20
// lower. First pass: 120 and more less 20, so 300 meets 280 exactly and stays at 280; beyond it plus 30. Minus sign:
// the single-point screens take 20 off twice and add 30 from |t| = 250 on. Rows look at the running value: -249.5
// becomes -269.5, which is beyond 250, and comes back by 30; typed stakes look at 249.5, which is not.
const Stakes kJumpThenOverlap[] = {
    // typed     DgdZb    DgdGc    start    end      file     row      block editor
    {   99.5,    99.5,    99.5,    99.5,    99.5,    99.5,    99.5,    99.5},
    {    100,     100,     100,     100,     100,     100,     100,     100},
    {  100.5,       G,       G,       G,       G,       G,       G,       G},
    {  119.5,       G,       G,       G,       G,       G,       G,       G},
    {    120,     100,     100,     100,     100,     100,     100,     120},
    {  120.5,   100.5,   100.5,   100.5,   100.5,   100.5,   100.5,   100.5},
    {  249.5,   229.5,   229.5,   229.5,   229.5,   229.5,   229.5,   229.5},
    {    250,     230,     230,     230,     230,     230,     230,     230},
    {  250.5,   230.5,   230.5,   230.5,   230.5,   230.5,   230.5,   230.5},
    {  269.5,   249.5,   249.5,   249.5,   249.5,   249.5,   249.5,   249.5},
    {    270,     250,     250,     250,     250,     250,     250,     250},
    {  270.5,   250.5,   250.5,   250.5,   250.5,   250.5,   250.5,   250.5},
    {  279.5,   259.5,   259.5,   259.5,   259.5,   259.5,   259.5,   259.5},
    {    280,     260,     260,     260,     260,     260,     260,     260},
    {  280.5,   260.5,   260.5,   260.5,   260.5,   260.5,   260.5,   260.5},
    {  299.5,   279.5,   279.5,   279.5,   279.5,   279.5,   279.5,   279.5},
    {    300,     280,     280,     280,     280,     280,     280,     280},
    {  300.5,   310.5,   310.5,   310.5,   310.5,   310.5,   310.5,   310.5},
    {  -99.5,    99.5,    99.5,   -99.5,   -99.5,   -99.5,   -99.5,   -99.5},
    {   -100,     100,     100,    -100,    -100,    -100,    -100,    -100},
    { -100.5,       G,       G,  -100.5,  -100.5,  -100.5,  -100.5,  -100.5},
    { -119.5,       G,       G,  -119.5,  -119.5,  -119.5,  -119.5,  -119.5},
    {   -120,      80,       G,    -120,    -140,    -120,    -120,    -120},
    { -120.5,    80.5,       G,  -140.5,  -140.5,  -140.5,  -140.5,  -120.5},
    { -249.5,   209.5,       G,  -269.5,  -269.5,  -269.5,  -239.5,  -249.5},
    {   -250,     240,       G,    -270,    -240,    -270,    -240,    -250},
    { -250.5,   240.5,       G,  -240.5,  -240.5,  -240.5,  -240.5,   280.5},
    { -269.5,   259.5,       G,  -259.5,  -259.5,  -259.5,  -259.5,   299.5},
    {   -270,     260,       G,    -260,    -260,    -260,    -260,     300},
    { -270.5,   260.5,       G,  -260.5,  -260.5,  -260.5,  -260.5,   300.5},
    { -279.5,   269.5,       G,  -269.5,  -269.5,  -269.5,  -269.5,   309.5},
    {   -280,     270,       G,    -270,    -270,    -270,    -270,     310},
    { -280.5,   270.5,       G,  -270.5,  -270.5,  -270.5,  -270.5,  -280.5},
    { -299.5,   289.5,       G,  -289.5,  -289.5,  -289.5,  -289.5,  -299.5},
    {   -300,     290,       G,    -290,    -290,    -290,    -290,    -300},
    { -300.5,   320.5,       G,  -290.5,  -290.5,  -290.5,  -290.5,  -300.5},
};

const Nominal kBackJumpThenOverlap[] = {
    { 79.5,  79.5, false}, {   80,    80, false}, { 80.5,  80.5, false},
    { 99.5,  99.5, false}, {  100,   100, false}, {100.5, 120.5, false},
    {119.5, 139.5, false}, {  120,   140, false}, {120.5, 140.5, false},
    {249.5, 269.5, false}, {  250,   270, false}, {250.5, 270.5, false},
    {269.5, 259.5, true }, {  270,   260, true }, {270.5, 260.5, true },
    {279.5, 269.5, true }, {  280,   270, true }, {280.5, 270.5, true },
    {299.5, 289.5, false}, {  300,   290, false}, {300.5, 290.5, false},
    {309.5, 299.5, false}, {  310,   300, false}, {310.5, 300.5, false},
};

// An overlap of 20 from 200 back to 180, then a jump of 50 from 300 to 350, kept as 320 and 370, 20 higher. First
// pass: beyond 200 plus 20, so 300 meets 320 and 350 meets 370, which becomes 320. Where the gap test looks at the
// typed stake, 350..369.5 is refused although the running value is beyond the gap, and the block editor leaves 370
// alone. Minus sign: plus 20 from 180 on, less 50 from 370 on.
const Stakes kOverlapThenJump[] = {
    // typed     DgdZb    DgdGc    start    end      file     row      block editor
    {  179.5,   179.5,   179.5,   179.5,   179.5,   179.5,   179.5,   179.5},
    {    180,     180,     180,     180,     180,     180,     180,     180},
    {  180.5,   180.5,   180.5,   180.5,   180.5,   180.5,   180.5,   180.5},
    {  199.5,   199.5,   199.5,   199.5,   199.5,   199.5,   199.5,   199.5},
    {    200,     200,     200,     200,     200,     200,     200,     200},
    {  200.5,   220.5,   220.5,   220.5,   220.5,   220.5,   220.5,   220.5},
    {  299.5,   319.5,   319.5,   319.5,   319.5,   319.5,   319.5,   319.5},
    {    300,     320,     320,     320,     320,     320,     320,     320},
    {  300.5,       G,       G,       G,       G,       G,       G,       G},
    {  319.5,       G,       G,       G,       G,       G,       G,       G},
    {    320,       G,       G,       G,       G,       G,       G,       G},
    {  320.5,       G,       G,       G,       G,       G,       G,       G},
    {  349.5,       G,       G,       G,       G,       G,       G,       G},
    {    350,     320,       G,       G,       G,     320,     320,     370},
    {  350.5,   320.5,       G,       G,       G,   320.5,   320.5,   320.5},
    {  369.5,   339.5,       G,       G,       G,   339.5,   339.5,   339.5},
    {    370,     340,     340,     340,     340,     340,     340,     340},
    {  370.5,   340.5,   340.5,   340.5,   340.5,   340.5,   340.5,   340.5},
    { -179.5,   179.5,   179.5,  -179.5,  -179.5,  -179.5,  -179.5,  -179.5},
    {   -180,     200,     200,    -180,    -160,    -180,    -180,    -180},
    { -180.5,   200.5,   200.5,  -160.5,  -160.5,  -160.5,  -160.5,   200.5},
    { -199.5,   219.5,   219.5,  -179.5,  -179.5,  -179.5,  -179.5,   219.5},
    {   -200,     220,     220,    -180,    -180,    -180,    -180,     220},
    { -200.5,   240.5,       G,  -180.5,  -180.5,  -180.5,  -180.5,  -200.5},
    { -299.5,   339.5,       G,  -279.5,  -279.5,  -279.5,  -279.5,  -299.5},
    {   -300,     340,       G,    -280,    -280,    -280,    -280,    -300},
    { -300.5,       G,       G,  -280.5,  -280.5,  -280.5,  -280.5,  -300.5},
    { -319.5,       G,       G,  -299.5,  -299.5,  -299.5,  -299.5,  -319.5},
    {   -320,       G,       G,    -300,    -300,    -300,    -300,    -320},
    { -320.5,       G,       G,  -300.5,  -300.5,  -300.5,  -300.5,  -320.5},
    { -349.5,       G,       G,  -329.5,  -329.5,  -329.5,  -329.5,  -349.5},
    {   -350,     340,       G,    -330,    -330,    -330,    -330,    -350},
    { -350.5,   340.5,       G,  -330.5,  -330.5,  -330.5,  -330.5,  -350.5},
    { -369.5,   359.5,       G,  -349.5,  -349.5,  -349.5,  -349.5,  -369.5},
    {   -370,     310,       G,    -350,    -400,    -350,    -350,    -370},
    { -370.5,   310.5,       G,  -400.5,  -400.5,  -400.5,  -350.5,  -370.5},
};

const Nominal kBackOverlapThenJump[] = {
    {179.5, 179.5, false}, {  180,   180, false}, {180.5, 180.5, false},
    {199.5, 199.5, false}, {  200,   200, false}, {200.5, 180.5, true },
    {219.5, 199.5, true }, {  220,   200, true }, {220.5, 200.5, false},
    {269.5, 249.5, false}, {  270,   250, false}, {270.5, 250.5, false},
    {299.5, 279.5, false}, {  300,   280, false}, {300.5, 280.5, false},
    {319.5, 299.5, false}, {  320,   300, false}, {320.5, 300.5, false},
    {349.5, 379.5, false}, {  350,   380, false}, {350.5, 380.5, false},
    {369.5, 399.5, false}, {  370,   400, false}, {370.5, 400.5, false},
};

// Overlaps of 20 from 200 back to 180 and of 60 from 300 back to 240, the second kept as 320 and 260, 20 higher. First
// pass: beyond 200 plus 20, beyond 300 (which meets 320) plus 60 more. Minus sign: both amounts are added again by |t|
// = 180 and by |t| = 260; the running value of a row, -240.5 for -260.5, does not reach 260.
const Stakes kTwoOverlaps[] = {
    // typed     DgdZb    DgdGc    start    end      file     row      block editor
    {  179.5,   179.5,   179.5,   179.5,   179.5,   179.5,   179.5,   179.5},
    {    180,     180,     180,     180,     180,     180,     180,     180},
    {  180.5,   180.5,   180.5,   180.5,   180.5,   180.5,   180.5,   180.5},
    {  199.5,   199.5,   199.5,   199.5,   199.5,   199.5,   199.5,   199.5},
    {    200,     200,     200,     200,     200,     200,     200,     200},
    {  200.5,   220.5,   220.5,   220.5,   220.5,   220.5,   220.5,   220.5},
    {  239.5,   259.5,   259.5,   259.5,   259.5,   259.5,   259.5,   259.5},
    {    240,     260,     260,     260,     260,     260,     260,     260},
    {  240.5,   260.5,   260.5,   260.5,   260.5,   260.5,   260.5,   260.5},
    {  259.5,   279.5,   279.5,   279.5,   279.5,   279.5,   279.5,   279.5},
    {    260,     280,     280,     280,     280,     280,     280,     280},
    {  260.5,   280.5,   280.5,   280.5,   280.5,   280.5,   280.5,   280.5},
    {  299.5,   319.5,   319.5,   319.5,   319.5,   319.5,   319.5,   319.5},
    {    300,     320,     320,     320,     320,     320,     320,     320},
    {  300.5,   380.5,   380.5,   380.5,   380.5,   380.5,   380.5,   380.5},
    {  319.5,   399.5,   399.5,   399.5,   399.5,   399.5,   399.5,   399.5},
    {    320,     400,     400,     400,     400,     400,     400,     400},
    {  320.5,   400.5,   400.5,   400.5,   400.5,   400.5,   400.5,   400.5},
    { -179.5,   179.5,   179.5,  -179.5,  -179.5,  -179.5,  -179.5,  -179.5},
    {   -180,     200,     200,    -180,    -160,    -180,    -180,    -180},
    { -180.5,   200.5,   200.5,  -160.5,  -160.5,  -160.5,  -160.5,   200.5},
    { -199.5,   219.5,   219.5,  -179.5,  -179.5,  -179.5,  -179.5,   219.5},
    {   -200,     220,     220,    -180,    -180,    -180,    -180,     220},
    { -200.5,   240.5,       G,  -180.5,  -180.5,  -180.5,  -180.5,  -200.5},
    { -239.5,   279.5,       G,  -219.5,  -219.5,  -219.5,  -219.5,  -239.5},
    {   -240,     280,       G,    -220,    -220,    -220,    -220,    -240},
    { -240.5,   280.5,       G,  -220.5,  -220.5,  -220.5,  -220.5,  -240.5},
    { -259.5,   299.5,       G,  -239.5,  -239.5,  -239.5,  -239.5,  -259.5},
    {   -260,     360,       G,    -240,    -180,    -240,    -240,    -260},
    { -260.5,   360.5,       G,  -180.5,  -180.5,  -180.5,  -240.5,   320.5},
    { -299.5,   399.5,       G,  -219.5,  -219.5,  -219.5,  -219.5,   359.5},
    {   -300,     400,       G,    -220,    -220,    -220,    -220,     360},
    { -300.5,   460.5,       G,  -220.5,  -220.5,  -220.5,  -220.5,   360.5},
    { -319.5,   479.5,       G,  -239.5,  -239.5,  -239.5,  -239.5,   379.5},
    {   -320,     480,       G,    -240,    -240,    -240,    -240,     380},
    { -320.5,   480.5,       G,  -240.5,  -240.5,  -240.5,  -240.5,  -320.5},
};

const Nominal kBackTwoOverlaps[] = {
    {179.5, 179.5, false}, {  180,   180, false}, {180.5, 180.5, false},
    {199.5, 199.5, false}, {  200,   200, false}, {200.5, 180.5, true },
    {219.5, 199.5, true }, {  220,   200, true }, {220.5, 200.5, false},
    {239.5, 219.5, false}, {  240,   220, false}, {240.5, 220.5, false},
    {259.5, 239.5, false}, {  260,   240, false}, {260.5, 240.5, false},
    {299.5, 279.5, false}, {  300,   280, false}, {300.5, 280.5, false},
    {319.5, 299.5, false}, {  320,   300, false}, {320.5, 300.5, false},
    {379.5, 299.5, true }, {  380,   300, true }, {380.5, 300.5, true },
};
// clang-format on

struct Kept {
    double back, ahead, cum;
};
const struct Case {
    const char* name;
    std::vector<Break> breaks;
    std::vector<Kept> table;
    std::span<const Stakes> stakes;
    std::span<const Nominal> nominal;
} kCases[] = {
    {"None", {}, {}, kNone, kBackNone},
    {"Jump", {{100, 120}}, {{100, 120, 20}}, kJump, kBackJump},
    {"Overlap", {{200, 180}}, {{200, 180, -20}}, kOverlap, kBackOverlap},
    {"JumpThenOverlap",
     {{100, 120}, {300, 270}},
     {{100, 120, 20}, {280, 250, -30}},
     kJumpThenOverlap,
     kBackJumpThenOverlap},
    {"OverlapThenJump",
     {{200, 180}, {300, 350}},
     {{200, 180, -20}, {320, 370, 50}},
     kOverlapThenJump,
     kBackOverlapThenJump},
    {"TwoOverlaps", {{200, 180}, {300, 240}}, {{200, 180, -20}, {320, 260, -60}}, kTwoOverlaps, kBackTwoOverlaps},
};

class Chainage : public FreshTables<testing::Test> {};

TEST_F(Chainage, BreakTablesByHand)
{
    for (const Case& c : kCases) {
        setBreaks(c.breaks);
        for (std::size_t i = 0; i < c.table.size(); ++i) {
            EXPECT_EQ(gDlBack[i], c.table[i].back) << c.name;
            EXPECT_EQ(gDlAhead[i], c.table[i].ahead) << c.name;
            EXPECT_EQ(gDlCum[i], c.table[i].cum) << c.name;
        }
    }
}

TEST_F(Chainage, EveryRuleAtEveryBreakByHand)
{
    for (const Case& c : kCases) {
        setBreaks(c.breaks);
        for (const Stakes& stakes : c.stakes)
            for (const auto& column : kColumns) {
                const double expected = stakes.*column.column;
                EXPECT_EQ(ResolveStake(stakes.typed, column.rule).value_or(G), expected)
                    << c.name << ", " << stakes.typed << ", " << column.name;
            }
    }
}

TEST_F(Chainage, WayBackAtEveryBreakByHand)
{
    for (const Case& c : kCases) {
        setBreaks(c.breaks);
        for (const Nominal& n : c.nominal) {
            const NominalStake got = ToNominal(n.continuous);
            EXPECT_EQ(got.value, n.nominal) << c.name << ", " << n.continuous;
            EXPECT_EQ(got.secondPass, n.secondPass) << c.name << ", " << n.continuous;
        }
    }
}

TEST_F(Chainage, AnyTwoRulesPartAtSomeStakeOfTheTables)
{
    for (const auto& one : kColumns)
        for (const auto& other : kColumns) {
            if (one.column == other.column) continue;
            bool parts = false;
            for (const Case& c : kCases)
                for (const Stakes& stakes : c.stakes) parts |= stakes.*one.column != stakes.*other.column;
            EXPECT_TRUE(parts) << one.name << ", " << other.name;
        }
}

TEST_F(Chainage, EveryScreenHasItsRule)
{
    const std::map<std::string_view, const ResolveRule*> expected{
        {"frmDgdZb", &kDgdZb},          {"frmJgw", &kDgdZb},
        {"frmDgdGc", &kDgdGc},          {"frmPlfyStart", &kBatchStart},
        {"frmPlfyEnd", &kBatchEnd},     {"frmPlfyFile", &kFileLine},
        {"frmPlGcStart", &kBatchStart}, {"frmPlGcEnd", &kBatchEnd},
        {"frmPlGcFile", &kFileLine},    {"frmPlStart", &kBatchStart},
        {"frmPlEnd", &kBatchEnd},       {"frmJgwFile", &kFileLine},
        {"TableRow", &kTableRow},       {"BlockEditor", &kBlockEditor},
    };
    std::map<std::string_view, const ResolveRule*> got;
    for (const auto& variant : kResolveVariants) got[variant.name] = &variant.rule;
    EXPECT_EQ(got, expected);
}

// One overlap, back 10120, ahead 10100.
TEST_F(Chainage, OverlapExample)
{
    setBreaks({{10120, 10100}});
    EXPECT_EQ(gDlCum[0], -20);
    EXPECT_EQ(ResolveStake(10110, kDgdZb), 10110);
    EXPECT_EQ(ResolveStake(10150, kDgdZb), 10170);
    EXPECT_EQ(ResolveStake(-10110, kDgdZb), 10130);
    EXPECT_EQ(ResolveStake(10120, kDgdZb), 10120);  // back: the break's position
    EXPECT_EQ(ResolveStake(10100, kDgdZb), 10100);  // ahead: one amount before it
    EXPECT_EQ(ToNominal(10130).value, 10110);
    EXPECT_TRUE(ToNominal(10130).secondPass);
    EXPECT_EQ(ToNominal(10170).value, 10150);
    EXPECT_FALSE(ToNominal(10170).secondPass);
}

// One jump, back 10100, ahead 10120.
TEST_F(Chainage, JumpExample)
{
    setBreaks({{10100, 10120}});
    EXPECT_EQ(gDlCum[0], 20);
    EXPECT_EQ(ResolveStake(10110, kDgdZb), std::nullopt);
    EXPECT_EQ(ResolveStake(10120, kDgdZb), 10100);
    EXPECT_EQ(ResolveStake(10100, kDgdZb), 10100);  // two nominal numbers, one continuous stake
    EXPECT_EQ(ResolveStake(10150, kDgdZb), 10130);
    EXPECT_EQ(ToNominal(10130).value, 10150);
    EXPECT_EQ(ToNominal(10100).value, 10100);  // the break's point reads as its back stake
}

TEST_F(Chainage, TwoBreaksCompileExample)
{
    setBreaks({{100, 120}, {500, 490}});
    EXPECT_EQ(gDlCum, (std::vector<double>{20, -10}));
    EXPECT_EQ(gDlBack, (std::vector<double>{100, 480}));
    EXPECT_EQ(gDlAhead, (std::vector<double>{120, 470}));
}

TEST_F(Chainage, AmountOfZeroHasNoEffect)
{
    setBreaks({{100, 100}, {300, 320}});
    EXPECT_EQ(gDlBack, (std::vector<double>{100, 300}));
    for (const double t : {99.5, 100.0, 100.5, 299.5, 300.0}) {
        for (const auto& column : kColumns) EXPECT_EQ(ResolveStake(t, column.rule), t) << column.name;
        EXPECT_EQ(ToNominal(t).value, t);
        EXPECT_FALSE(ToNominal(t).secondPass);
    }
}

TEST_F(Chainage, BreakTablesWithoutTheFlagAreNotRead)
{
    setBreaks({{100, 120}});
    gHasDl = 0;
    EXPECT_EQ(ResolveStake(-110, kDgdZb), 110);
    EXPECT_EQ(ResolveStake(-110, kDgdGc), 110);
    for (const ResolveRule* rule : {&kBatchStart, &kBatchEnd, &kFileLine, &kTableRow, &kBlockEditor})
        EXPECT_EQ(ResolveStake(-110, *rule), -110);
    EXPECT_EQ(ToNominal(110.12345).value, 110.12345);  // not even rounded
}

TEST_F(Chainage, NegativeStakeTakesEarlierBreaksOffTwice)
{
    setBreaks({{100, 120}, {500, 490}});
    // 485: less 20 is 465, below the second break at 480. The minus sign takes 20 off again and, with 485 >= 470,
    // adds 10.
    EXPECT_EQ(ResolveStake(485, kDgdZb), 465);
    EXPECT_EQ(ResolveStake(-485, kDgdZb), 455);
}

TEST_F(Chainage, WayBackMeetsLaterBreaksWithTheRunningValue)
{
    // 470 lies before the second break at 480, but with the first amount it is 490 and is taken for beyond it.
    setBreaks({{100, 120}, {500, 510}});
    EXPECT_EQ(gDlBack[1], 480);
    EXPECT_EQ(ToNominal(470).value, 500);
    EXPECT_EQ(ToNominal(450).value, 470);
}

TEST_F(Chainage, WayBackRoundsHalfUp)
{
    setBreaks({{100, 120}});
    EXPECT_EQ(ToNominal(130.0625).value, 150.063);
    EXPECT_EQ(ToNominal(-0.0625).value, -0.062);
}

TEST_F(Chainage, AStakeBeyondAllNumbersIsAnOverflow)
{
    setBreaks({{0, 1e308}});
    for (const double stake : {0.001, 1000.0, 1e308}) {
        try {
            const double nominal = ToNominal(stake).value;
            FAIL() << stake << " became " << nominal;
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.number(), RunTimeError::Overflow) << stake;
        }
    }
    EXPECT_EQ(ToNominal(-5).value, -5);  // before the break
}

TEST_F(Chainage, RowIsConvertedInPlaceAndAGapKeepsWhatWasSubtracted)
{
    setBreaks({{100, 120}, {300, 320}});  // the second row is kept as 280, 300
    double row = 310;
    EXPECT_FALSE(ConvertRowStake(shared.tables, row));
    EXPECT_EQ(row, 290);
    row = 340;
    EXPECT_TRUE(ConvertRowStake(shared.tables, row));
    EXPECT_EQ(row, 300);
    row = 110;
    EXPECT_FALSE(ConvertRowStake(shared.tables, row));
    EXPECT_EQ(row, 110);
}

TEST_F(Chainage, RowAgreesWithItsRuleOnTheTables)
{
    for (const Case& c : kCases) {
        setBreaks(c.breaks);
        for (const Stakes& stakes : c.stakes) {
            double row = stakes.typed;
            EXPECT_EQ(ConvertRowStake(shared.tables, row) ? row : G, stakes.tableRow) << c.name << ", " << stakes.typed;
        }
    }
}

TEST_F(Chainage, BlockEditorLooksOnceForANegativeValue)
{
    // Overlaps of 20 from 200 to 180 and of 200 from 350 to 150, the second kept as 370 and 170. -190 is mirrored to
    // 210 by the first; the value is positive then, and the second, with 210 between 170 and 370, still takes it to
    // 410.
    setBreaks({{200, 180}, {350, 150}});
    EXPECT_EQ(ResolveStake(-190, kBlockEditor), 410);
}

TEST(RoundHalfUp3, TieGoesTowardsPlusInfinity)
{
    EXPECT_EQ(RoundHalfUp3(0.0625), 0.063);
    EXPECT_EQ(RoundHalfUp3(-0.0625), -0.062);
    EXPECT_EQ(RoundHalfUp3(-0.0004), 0);
    EXPECT_EQ(RoundHalfUp3(0.0004), 0);
    EXPECT_EQ(RoundHalfUp3(-0.0006), -0.001);
    EXPECT_EQ(RoundHalfUp3(1234.5678), 1234.568);
}

}  // namespace
