#include "base/TemporaryName.h"

#include <cstdint>
#include <random>
#include <string_view>

namespace {

constexpr std::string_view kAlphabet = "0123456789abcdefghijklmnopqrstuvwxyz", kEnding = ".tmp";
constexpr std::size_t kChance = 8;

}  // namespace

std::string TemporaryNames(const std::filesystem::path& file)
{
    std::uint64_t hash = 14695981039346656037u;  // FNV-1a
    for (const unsigned char byte : file.filename().u8string()) hash = (hash ^ byte) * 1099511628211u;
    std::string digits;
    for (int i = 0; i < 16; ++i, hash >>= 4) digits += kAlphabet[hash & 15];
    return ".vm" + digits + "-";
}

std::string NameByChance(const std::string& beginning)
{
    std::random_device chance;
    std::uniform_int_distribution<std::size_t> letter(0, kAlphabet.size() - 1);
    std::string name = beginning;
    for (std::size_t i = 0; i < kChance; ++i) name += kAlphabet[letter(chance)];
    return name.append(kEnding);
}

bool IsNameByChance(const std::string& name, const std::string& beginning)
{
    return name.size() == beginning.size() + kChance + kEnding.size() && name.starts_with(beginning) &&
           name.ends_with(kEnding) &&
           name.find_first_not_of(kAlphabet, beginning.size()) == name.size() - kEnding.size();
}

std::filesystem::path FolderOf(const std::filesystem::path& file)
{
    return file.has_parent_path() ? file.parent_path() : std::filesystem::path(".");
}
