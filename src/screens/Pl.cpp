#include "screens/Pl.h"

#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "engine/Chainage.h"
#include "screens/Handler.h"
#include "tables/CalcTables.h"

Outcome CalcPl(const PlInput& in, const JgwInput& jgw)
{
    return Handle(Trap::Words, [&] {
        Require(in.start, message::kNoRunStart, {}, message::kNotice);
        Require(in.end, message::kNoRunEnd, {}, message::kNotice);
        const double step = Required(in.step, message::kNoRunStep, {}, message::kNotice);
        if (step == 0) Refuse(message::kRunStepIsZero, {}, message::kNotice);
        const double start = ParseNumber(in.start), end = ParseNumber(in.end);
        if (start == end) Refuse(message::kRunStartIsEnd, {}, message::kNotice);

        gPlStart = start;
        gPlEnd = end;
        gPlStep = step;
        if (ResolveOrRefuse(start, kBatchStart) < at(gElemLc, 0)) {
            gPlStart = 0;
            Refuse(message::kStartBeforeRoute);
        }
        if (ResolveOrRefuse(end, kBatchEnd) > at(gElemLc, gElemCount)) {
            gPlEnd = 0;
            Refuse(message::kEndBeyondRoute);
        }
        RequireJgwTexts(jgw);
        gPlBatch = true;
    });
}
