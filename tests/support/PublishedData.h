#pragma once
// The published examples in tests/data.

#include "support/Json.h"

#include <fstream>
#include <iterator>
#include <string>

/// A file of tests/data; throws where it is missing or no JSON.
inline ReadJson publishedData(const std::string& name)
{
    std::ifstream in(VM_TEST_DATA "/" + name);
    return ReadJson::from({std::istreambuf_iterator<char>(in), {}});
}
