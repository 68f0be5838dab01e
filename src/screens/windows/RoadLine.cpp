#include "screens/windows/RoadLine.h"

#include "project/OpenRoad.h"
#include "ui/Fields.h"

RoadLine::RoadLine(QWidget* parent) : QuietLine(parent) { refresh(); }

void RoadLine::refresh()
{
    const RoadText road = roadText();
    say(fromUtf8(road.text), road.doubtful);
}
