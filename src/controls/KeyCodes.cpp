#include "controls/KeyCodes.h"

#include <QKeyEvent>

#include <utility>

namespace {

constexpr std::pair<Qt::Key, int> kKeyCodes[] = {
    {Qt::Key_Backspace, 8}, {Qt::Key_Tab, 9},      {Qt::Key_Backtab, 9}, {Qt::Key_Return, 13}, {Qt::Key_Enter, 13},
    {Qt::Key_Shift, 16},    {Qt::Key_Control, 17}, {Qt::Key_Alt, 18},    {Qt::Key_Escape, 27}, {Qt::Key_PageUp, 33},
    {Qt::Key_PageDown, 34}, {Qt::Key_End, 35},     {Qt::Key_Home, 36},   {Qt::Key_Left, 37},   {Qt::Key_Up, 38},
    {Qt::Key_Right, 39},    {Qt::Key_Down, 40},    {Qt::Key_Insert, 45}, {Qt::Key_Delete, 46},
};

}  // namespace

int keyAscii(const QKeyEvent& event)
{
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return 13;
    case Qt::Key_Backspace:
        return 8;
    case Qt::Key_Escape:
        return 27;
    case Qt::Key_Delete:
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return 0;
    default:
        return event.text().isEmpty() ? 0 : event.text().at(0).unicode();
    }
}

int keyCode(const QKeyEvent& event)
{
    const int key = event.key();
    for (const auto& [qt, code] : kKeyCodes)
        if (qt == key) return code;
    if (key >= Qt::Key_F1 && key <= Qt::Key_F12) return 112 + key - Qt::Key_F1;
    return key < 0x100 ? key : 0;
}

int shiftState(Qt::KeyboardModifiers held)
{
    return (held & Qt::ShiftModifier ? 1 : 0) + (held & Qt::ControlModifier ? 2 : 0) + (held & Qt::AltModifier ? 4 : 0);
}

int mouseButton(Qt::MouseButton button)
{
    switch (button) {
    case Qt::LeftButton:
        return 1;
    case Qt::RightButton:
        return 2;
    case Qt::MiddleButton:
        return 4;
    default:
        return 0;
    }
}
