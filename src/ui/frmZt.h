#pragma once
// What a paste has converted, shown before it is taken.

#include "base/DesignNumber.h"
#include "ui/Form.h"

#include <vector>

class frmZt : public Form {
    Q_OBJECT
public:
    explicit frmZt(const std::vector<Converted>& converted);

    bool Taken = false;  ///< 填 入; by any other way out nothing is taken
};

/// True where nothing was converted, and where the person takes it.
bool TakesConverted(const std::vector<Converted>& converted, QWidget* caller);
