#include "tools/Zbzfs.h"

#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "base/Trig.h"
#include "dialogs/Messages.h"
#include "tools/Required.h"

Outcome CalcForward(const ForwardInput& in, ForwardPoint& out)
{
    const auto outcome = RefuseEmpty({
        {in.czX, "txtZsCzX", message::kNoStationX},
        {in.czY, "txtZsCzY", message::kNoStationY},
        {in.fwj, "txtZsFwj", "方位角不能为空！"},
        {in.jl, "txtZsJl", "距离不能为空！"},
    });
    if (!outcome) return outcome;

    const double azRad = radians(DmsToDeg(ParseNumber(in.fwj)));
    const double distance = ParseNumber(in.jl);
    const double x = checked(trig::cos(azRad) * distance + ParseNumber(in.czX));
    const double y = checked(trig::sin(azRad) * distance + ParseNumber(in.czY));
    out = {FormatFixed3(x), FormatFixed3(y)};
    return {};
}

Outcome CalcInverse(const InverseInput& in, InverseRay& out)
{
    const auto outcome = RefuseEmpty({
        {in.czX, "txtFsCzx", message::kNoStationX},
        {in.czY, "txtFsCzy", message::kNoStationY},
        {in.hsX, "txtFsHsX", "后视X坐标不能为空！"},
        {in.hsY, "txtFsHsY", "后视Y坐标不能为空！"},
    });
    if (!outcome) return outcome;

    const double dx = checked(ParseNumber(in.hsX) - ParseNumber(in.czX));
    const double dy = checked(ParseNumber(in.hsY) - ParseNumber(in.czY));
    out = {FormatDmsOf(Azimuth(dx, dy)), FormatFixed3(checked(Distance(dx, dy)))};
    return {};
}
