#pragma once
// The kit that every form lays itself out with: one grid, one margin, labels in a right-aligned column, buttons of
// equal width, and the result grid takes the room that is left.

#include <QGroupBox>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>

#include <vector>

namespace ui {

/// A box with what stands before it: a text, or a check box that says the same.
struct FieldRow {
    FieldRow(const QString& text, QWidget* fieldBox) : label(text), box(fieldBox) {}
    FieldRow(QWidget* checkBox, QWidget* fieldBox) : head(checkBox), box(fieldBox) {}

    QString label;
    QWidget* head = nullptr;
    QWidget* box;
};
using Fields = std::vector<FieldRow>;

QLayout* fieldColumn(const Fields& fields);            ///< one under the other
QLayout* fieldLine(const Fields& fields);              ///< side by side, in columns where the width is not enough
QLayout* fieldTable(const std::vector<Fields>& rows);  ///< labels and boxes of all rows in columns
QGroupBox* frame(const QString& caption, QLayout* content);
/// Equal widths, at the right end of their row.
QLayout* buttonRow(const std::vector<QWidget*>& buttons);
QLayout* buttonColumn(const std::vector<QWidget*>& buttons);

/// A layout or a widget inside another.
struct Piece {
    Piece(QLayout* piece) : layout(piece) {}  // NOLINT(google-explicit-constructor): reads as a list of pieces
    Piece(QWidget* piece) : widget(piece) {}  // NOLINT(google-explicit-constructor)
    QLayout* layout = nullptr;
    QWidget* widget = nullptr;
};
QLayout* across(const std::vector<Piece>& pieces);  ///< side by side, of one height
QLayout* down(const std::vector<Piece>& pieces);    ///< one under the other, no stretch
/// The whole content of a window from top to bottom; a grid in it takes all the room that is left. Without one the
/// content keeps its size and its place in the middle.
void arrange(QWidget& window, const std::vector<Piece>& pieces);

inline constexpr int kCoordinateDigits = 13;
/// A box wide enough for so many digits.
void fitDigits(QWidget* box, int digits = kCoordinateDigits);
/// A text in lines of so many pixels, as high as it needs.
void fitText(QLabel* note, int width);
/// A box over the middle of a grid that says message::kSaving: hidden until shown while a file is written.
void placeWaitBox(QLineEdit* box, QWidget* over);

}  // namespace ui
