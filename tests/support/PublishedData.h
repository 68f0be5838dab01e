#pragma once
// The published examples in tests/data.

#include <fstream>
#include <nlohmann/json.hpp>
#include <string>

/// A file of tests/data; throws where it is missing or no JSON.
inline nlohmann::json publishedData(const std::string& name)
{
    std::ifstream in(VM_TEST_DATA "/" + name);
    return nlohmann::json::parse(in);
}
