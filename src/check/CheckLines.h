#pragma once
// The lines of a parameter file as a load would leave them.

#include "check/CheckFindings.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

/// What stands at the end of a file and between its lines.
struct LineSummary {
    std::size_t lines = 0;      ///< that hold text and outlive the load's cleaning
    bool blanks = false;        ///< there are blank lines, which the cleaning takes out
    bool unterminated = false;  ///< the last line has no CR LF and outlives the cleaning
    /// Pieces between CR LF after the cleaning, the one behind the last CR LF included.
    std::size_t pieces() const { return lines == 0 ? 0 : lines + (unterminated ? 0 : 1); }
};

/// Goes through a file line by line and hands over each one that holds text: its offset, its bytes and its number from
/// 1. What is wrong with the line ends is reported.
class LineWalk {
public:
    using Line = std::function<void(std::size_t, std::string_view, int)>;

    /// @param cleaned  the load takes blank lines out of this file
    LineWalk(std::string_view bytes, std::string name, bool cleaned, Findings& findings, Line line)
        : m_bytes(bytes), m_name(std::move(name)), m_cleaned(cleaned), m_findings(findings), m_line(std::move(line))
    {}
    /// Takes the next line. False: that was the last one.
    bool next();
    const LineSummary& summary() const { return m_summary; }

private:
    std::string_view m_bytes;
    std::string m_name;
    bool m_cleaned;
    Findings& m_findings;
    Line m_line;
    std::size_t m_at = 0;
    int m_number = 0;
    LineSummary m_summary;
};

/// True where the bytes are well-formed UTF-8 with at least one Chinese character of three bytes: code page 936 does
/// not give that by chance (its two-byte pairs may look like two-byte sequences at most).
bool LooksLikeUtf8(std::string_view bytes);

/// Bytes of code page 936 as a finding quotes them: UTF-8 on one line, cut where they are long.
std::string QuotedText(std::string_view bytes);

/// The bytes of a project's file. Nothing where it is missing, and where it cannot be read, which is a finding.
struct FileText {
    bool missing = false;
    std::optional<std::string> bytes;
};
FileText ReadFile(const std::string& folder, const std::string& name, Findings& findings);
