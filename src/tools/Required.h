#pragma once
// Boxes that must hold something before a tool computes.

#include "base/Numbers.h"
#include "dialogs/Messages.h"
#include "dialogs/Outcome.h"

#include <initializer_list>
#include <string>
#include <string_view>

/// A box, by what is typed in it, its name, and what is said where it is empty.
struct RequiredBox {
    std::string text;
    std::string name;
    std::string_view message;
};

/// The first empty box of the row: its message, title "注意", and the focus back to it.
inline Outcome RefuseEmpty(std::initializer_list<RequiredBox> boxes)
{
    for (const auto& box : boxes)
        if (Trim(box.text).empty()) return {Refusal{Notice(box.message), box.name}};
    return {};
}
