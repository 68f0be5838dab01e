#pragma once
// What a call can fail with.

#include <cerrno>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

namespace faults {

inline constexpr int kErrors[] = {ENOSPC, EIO, EACCES, EROFS};
inline constexpr int kUsual = -1;  ///< the one that a call of its kind meets most

inline int usualError(std::string_view kind)
{
    if (kind == "write" || kind == "mkdir" || kind == "fsync") return ENOSPC;
    if (kind == "stat" || kind == "read" || kind == "close") return EIO;
    if (kind == "unlink") return EROFS;
    return EACCES;  // open, rename, chmod
}

/// What each call fails with.
inline std::vector<int> errorsOf(bool all)
{
    if (all) return {std::begin(kErrors), std::end(kErrors)};
    return {kUsual};
}

inline std::string nameOf(int error)
{
    switch (error) {
    case kUsual:
        return "its usual error";
    case ENOSPC:
        return "ENOSPC";
    case EIO:
        return "EIO";
    case EACCES:
        return "EACCES";
    case EROFS:
        return "EROFS";
    default:
        return std::strerror(error);
    }
}

}  // namespace faults
