#pragma once
// The bytes of an XML file as text that can be parsed within bounded memory: UTF-8 whatever the file was, and without
// the insides of elements that nobody here reads (surfaces, cross sections, parcels), which is where the bulk lies.

#include <cstdint>
#include <string>
#include <string_view>

/// A larger file is refused by its size, before it is read.
inline constexpr std::uintmax_t kMostXmlBytes = 500'000'000;
/// More elements than this outside of what is left out are refused before anything is built from them.
inline constexpr std::size_t kMostXmlElements = 1'500'000;

/// All bytes of a file. @throws FileError; ExchangeError above kMostXmlBytes
std::string ReadXmlFile(const std::string& path);

/// UTF-8 of the bytes: by mark, else as the first line declares (UTF-8, UTF-16, the code pages of China, Latin-1).
/// @throws ExchangeError for another encoding, and for bytes that are none of the declared one
std::string XmlAsUtf8(std::string bytes);

/// Blanks the insides of elements that are not read; their tags stay, so that they can be named. Lines keep their
/// numbers. @throws ExchangeError where there are more than kMostXmlElements elements besides
void BlankWhatIsNotRead(std::string& xml);

/// The line of an offset, counted from 1.
std::size_t LineOfOffset(std::string_view text, std::size_t offset);
