#include "base/CodePage.h"
#include "base/RunTimeError.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <set>

namespace {

const std::string kUnknown = "\xEF\xBF\xBD";

/// What the iconv program makes of one character; "" where it refuses.
std::string iconvProgram(const std::string& bytes)
{
    const auto file = std::filesystem::temp_directory_path() / ("vm-cp-" + std::to_string(::getpid()));
    std::ofstream(file, std::ios::binary) << bytes;
    const std::string command = "iconv -f CP936 -t UTF-8 " + file.string() + " 2>/dev/null";
    std::string out;
    FILE* const pipe = popen(command.c_str(), "r");
    char block[65536];
    for (std::size_t n; (n = std::fread(block, 1, sizeof block, pipe)) > 0;) out.append(block, n);
    pclose(pipe);
    std::filesystem::remove(file);
    return out;
}

/// Every pair of a lead and a trail byte that decodes to one character.
std::vector<std::string> pairs()
{
    std::vector<std::string> all;
    for (int lead = 0x81; lead <= 0xFE; ++lead) {
        for (int trail = 0x40; trail <= 0xFE; ++trail) {
            const std::string pair{static_cast<char>(lead), static_cast<char>(trail)};
            if (trail != 0x7F && Utf8FromCp936(pair).find(kUnknown) == std::string::npos) all.push_back(pair);
        }
    }
    return all;
}

}  // namespace

TEST(CodePage, EveryCharacterComesBack)
{
    std::set<std::string> seen;
    for (int c = 0; c < 0x80; ++c)
        EXPECT_EQ(Cp936FromUtf8(Utf8FromCp936(std::string(1, char(c)))), std::string(1, char(c)));
    for (const auto& pair : pairs()) {
        const auto text = Utf8FromCp936(pair);
        EXPECT_TRUE(seen.insert(text).second) << text;
        EXPECT_EQ(Cp936FromUtf8(text), pair) << text;
    }
    EXPECT_EQ(seen.size(), 21791u);  // two-byte characters of the code page as published: the 21886 of GBK less 95
}

TEST(CodePage, EveryCharacterIsTheOneOfTheIconvProgram)
{
    std::string bytes, ours;
    for (const auto& pair : pairs()) {
        bytes += pair + "\n";
        ours += Utf8FromCp936(pair) + "\n";
    }
    EXPECT_EQ(iconvProgram(bytes), ours);
}

TEST(CodePage, WordsOfTheFiles)
{
    EXPECT_EQ(Cp936FromUtf8("未设置"), "\xCE\xB4\xC9\xE8\xD6\xC3");
    EXPECT_EQ(Cp936FromUtf8("交点法"), "\xBD\xBB\xB5\xE3\xB7\xA8");
    EXPECT_EQ(Utf8FromCp936("\xCF\xDF\xD0\xD4"), "线性");
    EXPECT_EQ(Utf8FromCp936(""), "");
    EXPECT_EQ(Cp936FromUtf8(""), "");
}

TEST(CodePage, EuroSignIsByte80)
{
    EXPECT_EQ(Utf8FromCp936("\x80"), "€");
    EXPECT_EQ(Utf8FromCp936("\xBD\xBB\x80,1"), "交€,1");
    EXPECT_EQ(Cp936FromUtf8("交€"), "\xBD\xBB\x80");
    EXPECT_EQ(Cp936FromUtf8("€€"), "\x80\x80");
}

TEST(CodePage, UnknownBytesAreOneReplacementEachAndTheRestStays)
{
    EXPECT_EQ(Utf8FromCp936("\xFF"), kUnknown);
    EXPECT_EQ(Utf8FromCp936("a\xFF,1.5"), "a" + kUnknown + ",1.5");
    EXPECT_EQ(Utf8FromCp936("\xBD"), kUnknown);           // half a character at the end
    EXPECT_EQ(Utf8FromCp936("\xBD,7"), kUnknown + ",7");  // the comma is a comma
    EXPECT_EQ(Utf8FromCp936("\xBD\xFF\xBD\xBB"), kUnknown + kUnknown + "交");
    EXPECT_EQ(Utf8FromCp936(std::string("\0\xFF", 2)), std::string("\0", 1) + kUnknown);
}

TEST(CodePage, UnknownCharactersAreRefused)
{
    for (const auto* text : {"😀", "a😀", "é́x́", "\xFF", "中\xE4\xBD"}) {
        try {
            Cp936FromUtf8(text);
            ADD_FAILURE() << text;
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.number(), RunTimeError::TypeMismatch);
        }
    }
}
