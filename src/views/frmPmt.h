#pragma once
// 线路平面图: the road from above, its elements beside it, the numbers under the cursor.

#include "views/ViewForm.h"

#include <vector>

class MSFlexGrid;
class PlanArea;
class QLineEdit;

class frmPmt : public ViewForm {
    Q_OBJECT
public:
    /// @param results  a result grid whose points are shown, and whose row follows the picked point; nullptr: none
    explicit frmPmt(MSFlexGrid* results = nullptr, ViewSource source = {});

    PlanArea& area() const { return *m_area; }

signals:
    /// 纵断面 or 横断面 of a stake is wanted. @param stake continuous
    void profileWanted(double stake);
    void sectionWanted(double stake);

protected:
    void reload() override;
    plot::Order order() const override;
    void showStale() override;
    bool Form_KeyPress(int keyAscii) override;

private:
    void cmdZd_Click();
    void comDj_Click(int index);
    void hover(QPointF where);
    void click(QPointF where);
    void openEditor(std::size_t element);
    void pickElement(std::size_t element, bool fromTable);
    void showElements();
    void readResults();
    void say();
    void pinAt(plot::Point local);
    double stakeAtHand() const;

    PlanArea* m_area;
    MSFlexGrid* m_elements;
    MSFlexGrid* m_results;
    QLineEdit* m_stake;
    QComboBox* m_other;
    QLabel* m_pinned;
    std::unique_ptr<plot::OwnRoad> m_otherRoad;
    std::vector<plot::Marked> m_marked;
    std::vector<std::pair<int, plot::Point>> m_resultRows;  ///< grid row and its point
    std::optional<double> m_pinnedStake;
    std::optional<plot::Point> m_pinnedPlace;  ///< east, north: a road read anew has another origin
    QString m_hovered;
    bool m_fromTable = false;
};
