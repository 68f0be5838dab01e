#include "base/Cell.h"

std::optional<double> ShownNumber::shown() const
{
    double value = number;
    switch (as) {
    case As::None:
        return std::nullopt;
    case As::Exact:
        break;
    case As::Shortest:
        value = ParseNumber(NumText(number));
        break;
    case As::Fixed3:
        value = Fixed3(number);
        break;
    case As::Dms:
        value = DegreesOfDmsText(number);
        break;
    case As::Degrees:
        value = DegreesOfSecondsText(number);
        break;
    }
    return minus ? -value : value;
}
