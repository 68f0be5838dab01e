#pragma once
// The sketch beside K前, K后, Z左, Z右: which length is which and which corner is which, for the mode and the angle.

#include "screens/Jgw.h"

#include <QWidget>

#include <optional>

class frmJgwDrawing : public QWidget {
    Q_OBJECT
public:
    explicit frmJgwDrawing(QWidget* parent = nullptr);

    /// Follows what is typed; texts that are no numbers take the lengths and the angle of an example.
    void follow(const JgwInput& in);
    QSize sizeHint() const override { return {300, 150}; }
    QSize minimumSizeHint() const override { return {240, 130}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    StructureSize m_size;
    double m_angle = 90;  // working angle, packed dd.mmss
    bool m_skewEnds = true;
};
