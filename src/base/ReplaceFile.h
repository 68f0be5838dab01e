#pragma once
// The one way a file is replaced.

#include <functional>
#include <string>
#include <string_view>

/// Replaces a regular file or makes it: written beside it, flushed to disk and renamed over it, so that a crash or a
/// full disk leaves the old bytes or the new ones. A link is followed, not replaced. Rights stay and, where root writes
/// a user's file, its owner, as far as the file system knows of such things. Refused where the file is write-protected
/// (though its folder would allow it), unreadable or not regular.
/// What a crash left beside the same file more than a day ago is removed.
/// @param path  UTF-8
/// @throws FileError, which is writing()
void WriteBytes(const std::string& path, std::string_view bytes);

/// WriteBytes for a place that a person named for a result: a pipe or a device is written straight.
void WriteResult(const std::string& path, std::string_view bytes);
/// The same for a file too large to be held: `next` gives its bytes piece by piece, an empty piece ends them. What it
/// throws goes through, and the file stays as it was.
void WriteResult(const std::string& path, const std::function<std::string()>& next);
