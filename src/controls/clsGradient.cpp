#include "controls/clsGradient.h"

#include <QPainter>

namespace {

using Vertex = std::array<std::int16_t, 3>;

/// The colour `step` of `steps` on the way; the first step has the first colour exactly.
QColor between(const Vertex& from, const Vertex& to, int step, int steps)
{
    const auto mix = [&](std::size_t channel) {
        const int a = static_cast<std::uint16_t>(from[channel]);
        const int b = static_cast<std::uint16_t>(to[channel]);
        return (a * steps + (b - a) * step) / steps >> 8;
    };
    return QColor(mix(0), mix(1), mix(2));
}

}  // namespace

void clsGradient::DefineRect(int left, int top, int right, int bottom)
{
    m_rect = QRect(left, top, right - left, bottom - top);
}

std::array<std::int16_t, 3> clsGradient::channels(Bgr colour)
{
    const auto channel = [colour](int shift) {
        const int wide = static_cast<int>(colour >> shift & 0xFF) << 8;
        return static_cast<std::int16_t>(wide < 32768 ? wide : wide - 65536);
    };
    return {channel(0), channel(8), channel(16)};
}

void clsGradient::DrawGradient(QPainter& painter, int mode, Bgr color1, Bgr color2) const
{
    const auto from = channels(color1);
    const auto to = channels(color2);
    const bool down = mode == TopToBottom;
    const int steps = down ? m_rect.height() : m_rect.width();
    for (int step = 0; step < steps; ++step) {
        const QRect strip = down ? QRect(m_rect.left(), m_rect.top() + step, m_rect.width(), 1)
                                 : QRect(m_rect.left() + step, m_rect.top(), 1, m_rect.height());
        painter.fillRect(strip, between(from, to, step, steps));
    }
}
