#pragma once
// The files of a project into tables: what is read and compiled in which order, and what a load met on the way.
// Nothing here changes a file, and nothing shared moves unless it is handed in.

#include "base/FileError.h"
#include "base/RunTimeError.h"
#include "tables/CalcTables.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// A line of a file of the project.
struct Place {
    std::string file;  ///< name within the project's folder
    int line = 0;      ///< counted from 1

    bool operator==(const Place&) const = default;
};

/// What a load met. The tables hold what it read until then.
struct Loaded {
    /// The files that were there and could not be read, each once: the tables are not those of the project then.
    std::vector<FileError> unreadable;
    /// A stake lies in the numbers that a chainage jump skips; nothing behind it was read.
    bool cutAtGap = false;
    /// The last line with text of a table file that has no comma in any line: the rows of such a file are looked for
    /// without end. Nothing behind it was read.
    std::optional<Place> neverEnds;
    /// The files whose rows went into the tables, in their order. Where the load was cut at a gap, the last of them is
    /// the one that holds the stake, and stands in the tables in part.
    std::vector<std::string> compiled = {};
    /// Files whose cleaning dropped a line with text, and of which no copy could be kept: which, and why, in Chinese.
    std::vector<std::string> notKept = {};

    /// Runs one statement as attempt does, and remembers the file that it could not read.
    template <class Statement>
    bool attemptFile(Statement statement)
    {
        return attempt([&] {
            try {
                statement();
            } catch (const FileError& error) {
                remember(error);
                throw;
            }
        });
    }

private:
    void remember(const FileError& error);
};

/// The bytes of a file of the project, by its name in namespace files. @throws FileError
using ProjectReader = std::function<std::string(std::string_view)>;

/// Compiles what `read` gives into the tables. Damaged fields keep old values without a word, and a group whose file
/// has no rows keeps what it had: a load into fresh tables is the road alone.
/// @param results  see CompileIntersectionPoints
/// @param met      what was met before, when the files were made ready
Loaded loadTables(const ProjectReader& read, Tables& tables, EngineResults& results, Loaded met = {});

/// The tables that opening the project in `folder` gives, from its files as they lie: none is changed or created, what
/// opening does to a file is done to its bytes in memory. Call it with fresh tables. @param folder UTF-8
Loaded loadTables(const std::string& folder, Tables& tables);

/// The settings with what a load adds to them: one more line until there are five.
std::string withFifthSetting(std::string settings);
