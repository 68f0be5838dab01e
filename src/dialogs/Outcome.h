#pragma once
// How the first half of a handler ends and where its rows go.

#include "base/Cell.h"
#include "base/GridText.h"
#include "dialogs/Dialogs.h"

#include <optional>
#include <string>
#include <vector>

/// Why a handler stopped: its box, and the control that takes the focus ("" for none).
struct Refusal {
    Msg msg;
    std::string field;

    bool operator==(const Refusal&) const = default;
};

/// Done (empty) or refused. A run-time error is thrown as RunTimeError; rows handed over stay, whatever the outcome.
struct Outcome {
    std::optional<Refusal> refusal;
    std::string choked = {};  ///< the text that is no number, where one was refused for it
    std::string told = {};    ///< what became of a file, in Chinese; "" where none was run
    bool doubtful = false;    ///< something of it was not computed
    explicit operator bool() const { return !refusal; }
};

/// One row of a result grid: the cell texts from column 1 on (column 0 is the sequence number), and quiet warnings.
struct ResultRow {
    std::vector<Cell> cells;
    std::string warning;               ///< "" or why the arithmetic cannot vouch for the row, in Chinese
    std::vector<CellNote> notes = {};  ///< the same for single cells
    std::optional<SeenFrom> station = {};
};

/// Takes result rows one at a time.
class RowSink {
public:
    virtual ~RowSink() = default;
    virtual void clear() = 0;                   ///< the earlier rows go (not called by handlers that append)
    virtual void row(ResultRow row) = 0;        ///< throws Overflow past what a 16-bit row counter holds
    virtual void changed() {}                   ///< the data-changed flag becomes True
    virtual bool abandoned() { return false; }  ///< Esc during long work: the handler returns at the next row
};
