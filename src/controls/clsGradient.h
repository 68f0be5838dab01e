#pragma once
// Fills one rectangle with a run from one colour to another.

#include <QColor>
#include <QRect>

#include <array>
#include <cstdint>

class QPainter;

/// A 24-bit colour, blue in the high byte, red in the low byte.
using Bgr = std::uint32_t;
constexpr QColor fromBgr(Bgr colour)
{
    return QColor(static_cast<int>(colour & 0xFF), static_cast<int>(colour >> 8 & 0xFF),
                  static_cast<int>(colour >> 16 & 0xFF));
}

class clsGradient {
public:
    enum Mode { LeftToRight = 0, TopToBottom = 1 };

    /// @param right, bottom  behind the last column and row
    void DefineRect(int left, int top, int right, int bottom);
    void DrawGradient(QPainter& painter, int mode, Bgr color1, Bgr color2) const;

    /// Red, green and blue as a vertex carries them: the byte in the high half of 16 bits, kept in a signed field.
    static std::array<std::int16_t, 3> channels(Bgr colour);

private:
    QRect m_rect;
};
