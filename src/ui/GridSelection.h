#pragma once
// The selection of a grid, whose current cell the view's own mouse handling does not move.

#include <QItemSelectionModel>

/// A press, a drag or a header selects cells for copying; the current cell stays unless `moves` says otherwise.
class GridSelection final : public QItemSelectionModel {
public:
    using QItemSelectionModel::QItemSelectionModel;

    bool moves = false;  ///< set around a key, a click, and what the program does

    void setCurrentIndex(const QModelIndex& index, SelectionFlags command) override
    {
        if (moves)
            QItemSelectionModel::setCurrentIndex(index, command);
        else
            select(index, command);
    }
};
