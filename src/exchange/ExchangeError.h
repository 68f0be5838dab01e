#pragma once

#include <stdexcept>

/// A file of another program that cannot be taken over, or a road that cannot go into one: why, in Chinese, UTF-8.
struct ExchangeError : std::runtime_error {
    using std::runtime_error::runtime_error;
};
