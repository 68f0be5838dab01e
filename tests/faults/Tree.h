#pragma once
// What lies in a folder, and which states of it are whole.

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace faults {

/// Paths below a folder and their bytes; a folder's are "(folder)".
using Tree = std::map<std::string, std::string>;

inline std::string bytesOf(const std::filesystem::path& file)
{
    std::ifstream in(file, std::ios::binary);
    std::string bytes{std::istreambuf_iterator<char>(in), {}};
    // A PDF bears the time at which it was made: it is whole if it has its end.
    if (file.extension() == ".pdf" && bytes.starts_with("%PDF") && bytes.ends_with("%%EOF\n")) return "(whole PDF)";
    return bytes;
}

/// A backup is named after the time at which it was made.
inline std::string withoutTime(const std::string& path)
{
    static const std::regex time("\\d{4}-\\d\\d-\\d\\d \\d\\d\\.\\d\\d\\.\\d\\d(\\.\\d{3})?");
    return path.starts_with("备份/") ? std::regex_replace(path, time, "(time)") : path;
}

inline Tree treeOf(const std::filesystem::path& root)
{
    Tree tree;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root))
        tree[withoutTime(entry.path().lexically_relative(root).string())] =
            entry.is_directory() ? "(folder)" : bytesOf(entry.path());
    return tree;
}

/// The tree but for the backups: one that fails is said in the line of the windows, not in a box.
inline Tree withoutBackups(Tree tree)
{
    std::erase_if(tree, [](const auto& entry) { return entry.first == "备份" || entry.first.starts_with("备份/"); });
    return tree;
}

/// The states in which each path was met while the work went well. A path that was not there is in the state of none.
class WholeStates {
public:
    void add(const Tree& tree)
    {
        for (const auto& [path, bytes] : tree) {
            if (!m_states.contains(path) && m_added) m_states[path].insert(std::nullopt);
            m_states[path].insert(bytes);
        }
        for (auto& [path, states] : m_states)
            if (!tree.contains(path)) states.insert(std::nullopt);
        m_added = true;
    }

    /// What is torn, missing or left over, a line each. @param killed  a temporary file may be left by a program that
    /// was killed
    std::vector<std::string> faultsOf(const Tree& tree, bool killed = false) const
    {
        std::vector<std::string> found;
        for (const auto& [path, bytes] : tree) {
            const auto known = m_states.find(path);
            if (known == m_states.end()) {
                if (!killed || !isTemporary(path)) found.push_back("left over: " + path);
            } else if (!known->second.contains(bytes)) {
                found.push_back("neither old nor new: " + path + " (" + std::to_string(bytes.size()) + " bytes)");
            }
        }
        for (const auto& [path, states] : m_states)
            if (!tree.contains(path) && !states.contains(std::nullopt)) found.push_back("gone: " + path);
        return found;
    }

private:
    bool isTemporary(const std::string& path) const
    {
        const auto name = std::filesystem::path(path).filename().string();
        if (name.starts_with(".vm") && name.ends_with(".tmp")) return true;
        for (const auto& known : m_states)
            if (path.starts_with(known.first + ".")) return true;  // plan.dxf.XXXXXX
        return false;
    }

    std::map<std::string, std::set<std::optional<std::string>>> m_states;
    bool m_added = false;
};

/// The paths in which two trees differ.
inline std::string difference(const Tree& a, const Tree& b)
{
    std::string paths;
    for (const auto& [path, bytes] : a)
        if (const auto other = b.find(path); other == b.end() || other->second != bytes) paths += " " + path;
    for (const auto& [path, bytes] : b)
        if (!a.contains(path)) paths += " " + path;
    return paths;
}

/// The template is copied anew over whatever the last run left.
inline void restore(const std::filesystem::path& from, const std::filesystem::path& root)
{
    std::filesystem::remove_all(root);
    std::filesystem::copy(from, root, std::filesystem::copy_options::recursive);
}

}  // namespace faults
