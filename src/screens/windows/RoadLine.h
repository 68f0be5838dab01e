#pragma once
// The line of a window that names the road it computes with.

#include "ui/QuietLine.h"

class RoadLine : public QuietLine {
    Q_OBJECT
public:
    explicit RoadLine(QWidget* parent = nullptr);
    void refresh();  ///< after whatever may have opened, created or chosen a project
};
