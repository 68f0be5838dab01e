#include "base/ReplaceFile.h"

#include "base/ReplaceWhole.h"

namespace {

/// All bytes as one piece.
PiecesOfFile once(std::string_view bytes)
{
    return [bytes]() mutable {
        const std::string all(bytes);
        bytes = {};
        return all;
    };
}

}  // namespace

void WriteBytes(const std::string& path, std::string_view bytes) { ReplaceWhole(path, once(bytes), false); }

void WriteResult(const std::string& path, std::string_view bytes) { ReplaceWhole(path, once(bytes), true); }

void WriteResult(const std::string& path, const std::function<std::string()>& next) { ReplaceWhole(path, next, true); }
