#pragma once
// A compound file that holds one stream: the container of binary workbooks. Version 3, sectors of 512 bytes.
//
//   header | sectors of the stream | one directory sector | FAT sectors | DIFAT sectors
//
// The stream stands first, so that it can be built in place behind room left for the header.

#include <cstddef>
#include <string>
#include <string_view>

inline constexpr std::size_t kCompoundHeaderSize = 512;

/// Makes a compound file of `file`: kCompoundHeaderSize bytes of any content, then the stream. The stream is filled
/// with zeros to 4,096 bytes, below which it would have to stand in another place.
/// @param streamName at most 31 characters of ASCII
void CloseCompoundFile(std::string& file, std::string_view streamName);
