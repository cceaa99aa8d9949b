// Names go to the system as UTF-16. A file is opened so that others may read, write, rename and remove it meanwhile, as
// everywhere else; that it is open at all tells other runs that its run lives.
#include "driver/system.h"

#ifndef NOMINMAX
#define NOMINMAX
#endif
#define WIN32_LEAN_AND_MEAN
#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <new>
#include <string>
#include <system_error>
#include <utility>

#include "driver/own_files.h"

namespace fs = std::filesystem;

namespace
{
constexpr DWORD share_all = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

// ---- names and errors ----------------------------------------------------------------------------------------------

std::wstring wide(std::string_view text, UINT code_page, DWORD flags)
{
    const int length = static_cast<int>(text.size());
    const int needed = MultiByteToWideChar(code_page, flags, text.data(), length, nullptr, 0);
    std::wstring converted(static_cast<std::size_t>(needed), L'\0');
    MultiByteToWideChar(code_page, flags, text.data(), length, converted.data(), needed);
    return converted;
}

bool is_separator(wchar_t c)
{
    return c == L'\\' || c == L'/';
}

// The parts of a name between separators, joined behind the root, without "." and "..".
std::wstring joined_parts(std::wstring root, const std::wstring& name)
{
    const std::size_t shortest = root.size();
    for (std::size_t begin = 0; begin <= name.size();) {
        const std::size_t end = std::min(name.find_first_of(L"\\/", begin), name.size());
        const std::wstring part = name.substr(begin, end - begin);
        if (part == L"..")
            root.resize(std::max(shortest, std::min(root.rfind(L'\\'), root.size())));
        else if (!part.empty() && part != L".")
            root += L"\\" + part;
        begin = end + 1;
    }
    if (root.size() == shortest) root += L'\\';
    return root;
}

// The name as the system takes it to the letter, however long: whole, and marked so. Otherwise the system would drop a
// dot or a blank at a name's end, and take "aux.k" for a device.
std::wstring system_name(const fs::path& file)
{
    std::wstring name = file.native();
    if (name.starts_with(L"\\\\?\\") || name.starts_with(L"\\\\.\\") || lstrcmpiW(name.c_str(), L"NUL") == 0)
        return name;
    const bool rooted = !name.empty() && is_separator(name[0]);
    const bool drive = name.size() >= 2 && name[1] == L':';
    if ((drive && (name.size() == 2 || !is_separator(name[2]))) || (rooted && !is_separator(name[1]))) {
        std::error_code failed;
        name =
            fs::absolute(file, failed).native();  // relative to the current folder of a drive, or to the drive itself
    } else if (!drive && !rooted) {
        std::error_code failed;
        name = fs::current_path(failed).native() + L"\\" + name;
    }
    if (is_separator(name[0])) return joined_parts(L"\\\\?\\UNC", name);
    return joined_parts(L"\\\\?\\" + name.substr(0, 2), name.substr(2));
}

// The number of errno for the system's latest error.
int latest_error()
{
    const DWORD code = GetLastError();
    switch (code) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:  // characters that no name has
    case ERROR_BAD_PATHNAME:
        return ENOENT;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:  // another program has the file open and allows nobody else
    case ERROR_LOCK_VIOLATION:
        return EACCES;
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
        return EEXIST;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
        return ENOSPC;
    default:
        break;
    }
    const std::error_condition known = std::system_category().default_error_condition(static_cast<int>(code));
    return known.category() == std::generic_category() ? known.value() : EIO;
}

// ---- handles -------------------------------------------------------------------------------------------------------

// A handle of the system, or none.
class Handle
{
public:
    explicit Handle(HANDLE handle) : handle_(handle) {}
    ~Handle() { close(); }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    [[nodiscard]] bool valid() const { return handle_ != INVALID_HANDLE_VALUE; }
    [[nodiscard]] HANDLE get() const { return handle_; }
    HANDLE release() { return std::exchange(handle_, INVALID_HANDLE_VALUE); }
    void close()
    {
        if (valid()) CloseHandle(release());
    }

private:
    HANDLE handle_;
};

HANDLE handle_of(std::FILE* file)
{
    return reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(file)));
}

HANDLE open_handle(const fs::path& file, DWORD access, DWORD share, DWORD how, DWORD flags)
{
    return CreateFileW(system_name(file).c_str(), access, share, nullptr, how, flags, nullptr);
}

// The handle as a stream of bytes, which owns it.
std::FILE* stream_of(Handle& handle, int flags, const char* mode)
{
    const int descriptor = _open_osfhandle(reinterpret_cast<std::intptr_t>(handle.get()), flags | _O_BINARY);
    if (descriptor < 0) return nullptr;
    handle.release();
    std::FILE* const stream = _fdopen(descriptor, mode);
    if (stream == nullptr) _close(descriptor);
    return stream;
}

std::uint64_t joined(DWORD high, DWORD low)
{
    return std::uint64_t{high} << 32 | low;
}

FileState state_of_handle(HANDLE handle)
{
    FileState state;
    BY_HANDLE_FILE_INFORMATION found{};
    if (GetFileType(handle) != FILE_TYPE_DISK) {
        state.kind = FileState::Kind::other;
    } else if (GetFileInformationByHandle(handle, &found) == 0) {
        state.error = latest_error();
    } else {
        const bool folder = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        state.kind = folder ? FileState::Kind::folder : FileState::Kind::regular;
        state.device = found.dwVolumeSerialNumber;
        state.number = joined(found.nFileIndexHigh, found.nFileIndexLow);
        state.size = joined(found.nFileSizeHigh, found.nFileSizeLow);
        const std::uint64_t ticks = joined(found.ftLastWriteTime.dwHighDateTime, found.ftLastWriteTime.dwLowDateTime);
        state.modified = static_cast<std::int64_t>(ticks * 100);
    }
    return state;
}

// ---- ends from outside ---------------------------------------------------------------------------------------------

SRWLOCK ends_held = SRWLOCK_INIT;
UINT console_code_page = 0;  // what it was before the run; 0: it stays as it is

void restore_console()
{
    if (console_code_page != 0) SetConsoleOutputCP(console_code_page);
}

// The system calls this in a thread of its own. What is open goes once the process has ended.
BOOL WINAPI end_by_console(DWORD)
{
    AcquireSRWLockExclusive(&ends_held);
    remove_own_files();
    restore_console();
    return FALSE;  // the process ends as without this
}

bool is_console(DWORD stream)
{
    DWORD mode = 0;
    return GetConsoleMode(GetStdHandle(stream), &mode) != 0;
}

// The files that are locked by being open have the lock's handle; the folder's lock is such a file, too.
constexpr std::intptr_t no_handle = -1;

void close_kept(std::intptr_t& handle)
{
    if (handle != no_handle) CloseHandle(reinterpret_cast<HANDLE>(handle));
    handle = no_handle;
}
}  // namespace

// ---- the process ---------------------------------------------------------------------------------------------------

void prepare_standard_streams()
{
    struct Stream {
        DWORD place;
        std::FILE* file;
        const char* mode;
    };
    for (const auto& [place, file, mode] :
         {Stream{STD_INPUT_HANDLE, stdin, "r"}, Stream{STD_OUTPUT_HANDLE, stdout, "w"},
          Stream{STD_ERROR_HANDLE, stderr, "w"}}) {
        const HANDLE handle = GetStdHandle(place);
        const bool closed = handle == nullptr || handle == INVALID_HANDLE_VALUE;
        if (closed && std::freopen("NUL", mode, file) == nullptr) continue;
        if (file != stdin) _setmode(_fileno(file), _O_BINARY);
    }
    if (!is_console(STD_OUTPUT_HANDLE) && !is_console(STD_ERROR_HANDLE)) return;
    console_code_page = GetConsoleOutputCP();
    SetConsoleOutputCP(CP_UTF8);
    std::atexit(restore_console);
}

void prepare_for_sudden_ends()
{
    SetConsoleCtrlHandler(end_by_console, TRUE);
    std::set_new_handler(end_without_memory);
}

SignalsHeld::SignalsHeld()
{
    AcquireSRWLockExclusive(&ends_held);
}

SignalsHeld::~SignalsHeld()
{
    ReleaseSRWLockExclusive(&ends_held);
}

bool progress_is_seen()
{
    return is_console(STD_ERROR_HANDLE);
}

std::uint64_t process_number()
{
    return GetCurrentProcessId();
}

// ---- names ---------------------------------------------------------------------------------------------------------

fs::path path_of(std::string_view name)
{
    std::wstring converted = wide(name, CP_UTF8, MB_ERR_INVALID_CHARS);
    if (converted.empty()) converted = wide(name, CP_ACP, 0);
    return converted;
}

bool same_name(const fs::path& a, const fs::path& b)
{
    return CompareStringOrdinal(a.c_str(), -1, b.c_str(), -1, TRUE) == CSTR_EQUAL;
}

fs::path target_of(fs::path name)
{
    const DWORD attributes = GetFileAttributesW(system_name(name).c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) return name;
    const Handle file(open_handle(name, FILE_READ_ATTRIBUTES, share_all, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS));
    const DWORD needed = file.valid() ? GetFinalPathNameByHandleW(file.get(), nullptr, 0, FILE_NAME_NORMALIZED) : 0;
    if (needed == 0) return name;  // a link to nothing is replaced itself
    std::wstring target(needed, L'\0');
    target.resize(GetFinalPathNameByHandleW(file.get(), target.data(), needed, FILE_NAME_NORMALIZED));
    if (target.starts_with(L"\\\\?\\UNC\\")) return L"\\" + target.substr(std::size(L"\\\\?\\UNC") - 1);
    return target.starts_with(L"\\\\?\\") ? target.substr(4) : target;
}

// ---- files ---------------------------------------------------------------------------------------------------------

FileState state_of(const fs::path& file)
{
    const Handle handle(open_handle(file, FILE_READ_ATTRIBUTES, share_all, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS));
    if (handle.valid()) return state_of_handle(handle.get());
    FileState state;
    state.error = latest_error();
    return state;
}

FileState state_of(std::FILE* file)
{
    return state_of_handle(handle_of(file));
}

std::FILE* open_file(const fs::path& file, const char* mode)
{
    const std::string_view narrow = mode;
    std::FILE* const opened = _wfopen(system_name(file).c_str(), std::wstring(narrow.begin(), narrow.end()).c_str());
    if (opened == nullptr && state_of(file).kind == FileState::Kind::folder) errno = EISDIR;
    return opened;
}

std::FILE* open_to_read(const fs::path& file)
{
    Handle handle(open_handle(file, GENERIC_READ, share_all, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL));
    if (handle.valid()) return stream_of(handle, _O_RDONLY, "rb");
    errno = latest_error();
    if (state_of(file).kind == FileState::Kind::folder) errno = EISDIR;
    return nullptr;
}

int write_error(const fs::path& file)
{
    const Handle handle(open_handle(file, GENERIC_WRITE | DELETE, share_all, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL));
    return handle.valid() ? 0 : latest_error();
}

std::FILE* create_locked(const fs::path& file)
{
    Handle handle(
        open_handle(file, GENERIC_READ | GENERIC_WRITE | DELETE, share_all, CREATE_NEW, FILE_ATTRIBUTE_NORMAL));
    if (handle.valid()) return stream_of(handle, _O_RDWR, "w+b");
    errno = latest_error();
    return nullptr;
}

void FileLock::keep(std::FILE* file)
{
    release();
    const HANDLE process = GetCurrentProcess();
    HANDLE copy = INVALID_HANDLE_VALUE;
    if (DuplicateHandle(process, handle_of(file), process, &copy, 0, FALSE, DUPLICATE_SAME_ACCESS) != 0)
        handle_ = reinterpret_cast<std::intptr_t>(copy);
}

void FileLock::release()
{
    close_kept(handle_);
}

void dress_like(std::FILE*, const FileState&)
{
}

// A scanner for viruses may hold either file for a moment.
int rename_over(const fs::path& file, const fs::path& name)
{
    constexpr int most_tries = 20;
    for (int tries = 0;; ++tries) {
        if (MoveFileExW(system_name(file).c_str(), system_name(name).c_str(), MOVEFILE_REPLACE_EXISTING) != 0) return 0;
        const int error = latest_error();
        if (error != EACCES || tries == most_tries) return error;
        Sleep(50);
    }
}

void remove_file(const wchar_t* file)
{
    DeleteFileW(system_name(file).c_str());
}

void remove_abandoned(const fs::path& file)
{
    // nobody else may have it open; a link would go itself
    const Handle handle(
        open_handle(file, DELETE, 0, OPEN_EXISTING, FILE_FLAG_DELETE_ON_CLOSE | FILE_FLAG_OPEN_REPARSE_POINT));
}

// A file that only one process has open, and that goes with it.
FolderLock::FolderLock(const fs::path& folder)
{
    for (int tries = 0; tries < 100; ++tries) {
        Handle handle(open_handle(folder / L".morvex-lock", GENERIC_WRITE | DELETE, 0, OPEN_ALWAYS,
                                  FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE));
        if (handle.valid()) {
            handle_ = reinterpret_cast<std::intptr_t>(handle.release());
            return;
        }
        const DWORD error = GetLastError();
        if (error != ERROR_SHARING_VIOLATION && error != ERROR_ACCESS_DENIED) return;  // a file that is going is denied
        Sleep(10);
    }
}

FolderLock::~FolderLock()
{
    close_kept(handle_);
}
