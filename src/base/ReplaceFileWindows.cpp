#include "base/FileError.h"
#include "base/FilePath.h"
#include "base/HandleWindows.h"
#include "base/ReplaceWhole.h"
#include "base/TemporaryName.h"

#include <aclapi.h>
#include <cstdint>
#include <optional>
#include <utility>

namespace fs = std::filesystem;

namespace {

[[noreturn]] void fail(const std::string& path, std::error_code why) { throw FileError(path, FileError::Writing, why); }
[[noreturn]] void fail(const std::string& path, std::errc why) { fail(path, std::make_error_code(why)); }

std::uint64_t number(FILETIME time) { return std::uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime; }

/// What earlier writers of the same file left more than a day before `now`, the clock of the file system itself.
void removeLeftovers(const fs::path& folder, const std::string& beginning, FILETIME now)
{
    constexpr std::uint64_t day = 24ULL * 60 * 60 * 10'000'000;
    WIN32_FIND_DATAW found{};
    const HANDLE search = FindFirstFileW((folder / (beginning + "*")).c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return;
    do {
        const auto name = fs::path(found.cFileName).u8string();
        if (!IsNameByChance({name.begin(), name.end()}, beginning)) continue;
        const bool plain = (found.dwFileAttributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT)) == 0;
        if (plain && number(found.ftLastWriteTime) + day < number(now)) DeleteFileW((folder / found.cFileName).c_str());
    } while (FindNextFileW(search, &found));
    FindClose(search);
}

/// Who may do what with the file stays as it was. There are file systems without such rights, and files whose rights
/// their user may not look at or give away: there the new file has those of its folder.
void takeRights(HANDLE old, HANDLE made)
{
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    PACL rights = nullptr;
    if (GetSecurityInfo(old, SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr, nullptr, &rights, nullptr,
                        &descriptor) != ERROR_SUCCESS)
        return;
    SECURITY_DESCRIPTOR_CONTROL control = 0;
    DWORD revision = 0;
    if (rights && GetSecurityDescriptorControl(descriptor, &control, &revision)) {
        const DWORD inherited =
            control & SE_DACL_PROTECTED ? PROTECTED_DACL_SECURITY_INFORMATION : UNPROTECTED_DACL_SECURITY_INFORMATION;
        SetSecurityInfo(made, SE_FILE_OBJECT, DACL_SECURITY_INFORMATION | inherited, nullptr, nullptr, rights, nullptr);
    }
    LocalFree(descriptor);
}

/// The new bytes beside the old ones, gone with this object unless they have taken the place of the file.
class Beside {
public:
    /// @param replaces  a file stands there, whose rights the new one is to get
    Beside(const fs::path& file, bool replaces) : m_file(file)
    {
        const auto beginning = TemporaryNames(file);
        for (int i = 0; !m_opened && (i == 0 || (GetLastError() == ERROR_FILE_EXISTS && i < 100)); ++i) {
            m_path = FolderOf(file) / NameByChance(beginning);
            m_opened.emplace(m_path, GENERIC_WRITE | (replaces ? WRITE_DAC : 0), CREATE_NEW);
            // Whoever may change files of a share may not always change who else may.
            if (!*m_opened && replaces && GetLastError() == ERROR_ACCESS_DENIED)
                m_opened.emplace(m_path, GENERIC_WRITE, CREATE_NEW);
            if (!*m_opened) m_opened.reset();
        }
        BY_HANDLE_FILE_INFORMATION status{};
        if (m_opened && GetFileInformationByHandle(m_opened->get(), &status))
            removeLeftovers(FolderOf(file), beginning, status.ftLastWriteTime);
    }
    ~Beside()
    {
        if (!m_opened) return;
        m_opened->close();
        DeleteFileW(m_path.c_str());
    }
    Beside(const Beside&) = delete;
    Beside& operator=(const Beside&) = delete;

    explicit operator bool() const { return m_opened.has_value(); }
    HANDLE handle() const { return m_opened->get(); }
    bool write(const PiecesOfFile& next)
    {
        for (auto piece = next(); !piece.empty(); piece = next())
            if (!m_opened->write(piece)) return false;
        return m_opened->flush() && m_opened->close();
    }
    /// Virus scanners and indexers open what is new for a moment: some tries, a third of a second in all.
    bool replace(DWORD attributes)
    {
        constexpr DWORD kept = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
        if (attributes & kept) SetFileAttributesW(m_path.c_str(), FILE_ATTRIBUTE_ARCHIVE | (attributes & kept));
        for (DWORD wait = 5;; wait *= 2) {
            if (MoveFileExW(m_path.c_str(), m_file.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) break;
            const DWORD why = GetLastError();
            if ((why != ERROR_SHARING_VIOLATION && why != ERROR_ACCESS_DENIED) || wait > 160) return false;
            Sleep(wait);
        }
        m_opened.reset();
        return true;
    }

private:
    fs::path m_file, m_path;
    std::optional<Handle> m_opened;
};

/// Why a file that could be opened for writing was not replaced. Who has mapped it, or reads it and lets others delete
/// it, makes Windows speak of rights; where its user has the right to take it away, it is held.
std::error_code whyNotReplaced(const fs::path& file)
{
    const auto why = lastFailure();
    if (why.value() == ERROR_USER_MAPPED_FILE) return std::make_error_code(std::errc::device_or_resource_busy);
    if (why.value() != ERROR_ACCESS_DENIED) return why;
    const Handle gone(file, DELETE, OPEN_EXISTING);
    return gone || GetLastError() == ERROR_SHARING_VIOLATION ? std::make_error_code(std::errc::device_or_resource_busy)
                                                             : why;
}

void writeStraight(const std::string& path, const Handle& file, const PiecesOfFile& next)
{
    for (auto piece = next(); !piece.empty(); piece = next())
        if (!file.write(piece)) fail(path, lastFailure());
}

/// A new file's name from its drive on, marked as one that needs no measuring: the temporary name beside it may be
/// longer than what Windows else takes. A name that is too long itself stays as it is, and so does a device.
fs::path wholeName(const fs::path& named)
{
    std::wstring name(MAX_PATH, L'\0');
    const DWORD size = GetFullPathNameW(named.c_str(), MAX_PATH, name.data(), nullptr);
    if (size == 0 || size >= MAX_PATH) return named;
    name.resize(size);
    if (name.starts_with(LR"(\\?\)") || name.starts_with(LR"(\\.\)")) return named;
    return name.starts_with(LR"(\\)") ? LR"(\\?\UNC)" + name.substr(1) : LR"(\\?\)" + name;
}

}  // namespace

void ReplaceWhole(const std::string& path, const PiecesOfFile& next, bool straight)
{
    fs::path file = filePath(path);
    DWORD attributes = 0;
    const auto why = attributesOf(file, attributes);
    const bool exists = !why;
    if (!exists && why != std::errc::no_such_file_or_directory) fail(path, why);
    std::optional<Handle> old;
    if (exists) {
        if (attributes & FILE_ATTRIBUTE_DIRECTORY) fail(path, std::errc::is_a_directory);
        // Looked at here: not every system keeps a file from being replaced because it is write-protected.
        if (attributes & FILE_ATTRIBUTE_READONLY) fail(path, std::errc::permission_denied);
        old.emplace(file, GENERIC_READ | GENERIC_WRITE, OPEN_EXISTING);  // nobody holds it, and it may be written
        const auto refusal = lastFailure();
        const bool whole = static_cast<bool>(*old);
        if (!whole) old.emplace(file, GENERIC_WRITE, OPEN_EXISTING);  // a device may be for writing alone
        if (!*old) fail(path, refusal);
        if (!old->isOnDisk())
            return straight ? writeStraight(path, *old, next) : fail(path, std::errc::invalid_argument);
        if (!whole) fail(path, refusal);
        if (auto real = old->finalName(); !real.empty()) file = std::move(real);
    } else {
        file = wholeName(file);
    }
    Beside beside(file, exists);
    if (!beside) fail(path, lastFailure());
    if (exists) takeRights(old->get(), beside.handle());
    if (!beside.write(next)) fail(path, lastFailure());
    old.reset();
    if (!beside.replace(exists ? attributes : 0)) fail(path, exists ? whyNotReplaced(file) : lastFailure());
}
