#pragma once
// How a handler of a calculation screen runs: its trap, how it refuses, how it reads numbers.
//
// A body reads as the list of checks that a user can see: each check either goes on or leaves the body at once, with a
// refusal or a run-time error. Handle turns both into the Outcome that the form (or the companion) shows.

#include "dialogs/Outcome.h"
#include "screens/Messages.h"

#include <functional>
#include <string>
#include <string_view>

/// What becomes of a run-time error inside a handler.
enum class Trap {
    Words,   ///< the box 请输入正确的数值！
    Silent,  ///< the handler ends without a word
    None,    ///< it leaves the handler and ends the program
};

Outcome Handle(Trap trap, const std::function<void()>& body);

/// Leaves the body of a handler with a refusal.
/// @param field  given name of the control that takes the focus, "" for none
[[noreturn]] void Refuse(std::string_view text, std::string_view field = {}, std::string_view title = message::kError,
                         Icon icon = Icon::Exclamation);
/// The refusal of a stake that lies in the numbers which a jump skips.
[[noreturn]] void RefuseGap();
/// The box of the trap.
Refusal NotANumber();

bool IsBlank(std::string_view text);
/// Refuses where the text is blank.
void Require(std::string_view text, std::string_view message, std::string_view field = {},
             std::string_view title = message::kError);
/// The number of a text that must be there. @throws TypeMismatch, Overflow
double Required(std::string_view text, std::string_view message, std::string_view field = {},
                std::string_view title = message::kError);
/// The number of a text, 0 where it is blank. @throws TypeMismatch, Overflow
double OrZero(std::string_view text);

struct ResolveRule;
/// The continuous stake of a typed one, or the refusal.
double ResolveOrRefuse(double typed, const ResolveRule& rule);
