#include "windows/WindowsFileSystem.h"

#include "windows/WindowsLocale.h"

namespace tellwick::windows {

namespace {

constexpr DWORD Missing = INVALID_FILE_ATTRIBUTES;
constexpr std::int32_t FileExists = 58;
// For a file that another program has open for itself.
constexpr int MostAttempts = 20;
constexpr DWORD AttemptPause = 5;  // milliseconds

struct SearchCloser {
    using pointer = HANDLE;
    void operator()(HANDLE search) const {
        if (search != INVALID_HANDLE_VALUE) FindClose(search);
    }
};
using FileSearch = std::unique_ptr<void, SearchCloser>;

bool GetAttributes(TextView path, WIN32_FILE_ATTRIBUTE_DATA& data) {
    return GetFileAttributesExW(Wide(Text(path)), GetFileExInfoStandard, &data) &&
           !(data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY);
}

Handle Open(TextView path, DWORD access, DWORD disposition) {
    return Handle(CreateFileW(Wide(Text(path)), access, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                              disposition, FILE_ATTRIBUTE_NORMAL, nullptr));
}

bool IsOpen(const Handle& file) {
    return file.get() != INVALID_HANDLE_VALUE;
}

// A file that is made beside another one, under a name that nobody has, and goes again with this.
class FileBeside {
public:
    FileBeside() = default;
    FileBeside(const FileBeside&) = delete;
    FileBeside& operator=(const FileBeside&) = delete;
    ~FileBeside() {
        if (!name.empty()) DeleteFileW(Wide(name));
    }

    // Calls create with one name after the other until there was no such file; false when that
    // fails for another reason, which the system's last error tells.
    template <class Create>
    bool Make(TextView path, TextView ending, const Create& create) {
        for (int number = 1; number <= MostNames; ++number) {
            Text tried = Text(path).append(u".").append(NumberText(number)).append(ending);
            if (create(tried)) {
                name = std::move(tried);
                return true;
            }
            const DWORD error = GetLastError();
            if (error != ERROR_FILE_EXISTS && error != ERROR_ALREADY_EXISTS) break;
        }
        return false;
    }

    const Text& Name() const { return name; }

    // Puts it in the place of the other one. False when that fails.
    bool Replace(TextView path) {
        if (!MoveFileExW(Wide(name), Wide(Text(path)), MOVEFILE_REPLACE_EXISTING)) return false;
        name.clear();
        return true;
    }

private:
    static constexpr int MostNames = 1000;

    Text name;  // empty when there is none
};

// Calls visit with the name of each file and folder in a folder, and whether it is one. False when
// they cannot be read, or not to the end.
template <class Visit>
bool EachIn(TextView folder, const Visit& visit) {
    WIN32_FIND_DATAW found;
    // All of them: a pattern with an ending would match short names as well.
    const FileSearch search(FindFirstFileW(Wide(Text(folder) + u"*"), &found));
    if (search.get() == INVALID_HANDLE_VALUE) return false;
    do {
        visit(FromWide(found.cFileName), (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0);
    } while (FindNextFileW(search.get(), &found));
    return GetLastError() == ERROR_NO_MORE_FILES;
}

// The automation error for one of the system's.
std::int32_t NumberOf(DWORD systemError) {
    switch (systemError) {
        case ERROR_FILE_NOT_FOUND:
            return error::FileNotFound;
        case ERROR_PATH_NOT_FOUND:
        case ERROR_INVALID_NAME:
        case ERROR_BAD_NETPATH:
        case ERROR_INVALID_DRIVE:
            return error::PathNotFound;
        case ERROR_SHARING_VIOLATION:
        case ERROR_LOCK_VIOLATION:
            return error::PermissionDenied;
        case ERROR_FILE_EXISTS:
        case ERROR_ALREADY_EXISTS:
            return FileExists;
        default:
            return error::PathFileAccess;
    }
}

// What the system says of it to its user, in one line; without words, its number.
Text DescriptionOf(DWORD systemError) {
    wchar_t text[512];
    constexpr DWORD Flags =
        FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK;
    const DWORD length =
        FormatMessageW(Flags, nullptr, systemError, 0, text, DWORD(std::size(text)), nullptr);
    Text description = FromWide(text, length);
    while (description.ends_with(u' ')) description.pop_back();
    return description.empty() ? NumberText(std::int64_t(systemError)) : description;
}

}  // namespace

bool WindowsFileSystem::NoteLastError() {
    const DWORD last = GetLastError();
    errors.Note(NumberOf(last), DescriptionOf(last));
    return false;
}

bool WindowsFileSystem::Exists(TextView path) {
    return GetFileAttributesW(Wide(Text(path))) != Missing;
}

bool WindowsFileSystem::FolderExists(TextView path) {
    const DWORD attributes = GetFileAttributesW(Wide(Text(path)));
    return attributes != Missing && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

std::int64_t WindowsFileSystem::Length(TextView path) {
    WIN32_FILE_ATTRIBUTE_DATA data;
    if (!GetAttributes(path, data)) return -1;
    return std::int64_t(data.nFileSizeHigh) << 32 | data.nFileSizeLow;
}

std::uint64_t WindowsFileSystem::ModifiedTime(TextView path) {
    WIN32_FILE_ATTRIBUTE_DATA data;
    if (!GetAttributes(path, data)) return 0;
    return std::uint64_t(data.ftLastWriteTime.dwHighDateTime) << 32 |
           data.ftLastWriteTime.dwLowDateTime;
}

std::optional<std::string> WindowsFileSystem::Read(TextView path) {
    Handle file = Open(path, GENERIC_READ, OPEN_EXISTING);
    for (int attempt = 1;
         !IsOpen(file) && GetLastError() == ERROR_SHARING_VIOLATION && attempt < MostAttempts;
         ++attempt) {
        Sleep(AttemptPause);
        file = Open(path, GENERIC_READ, OPEN_EXISTING);
    }
    LARGE_INTEGER size{};
    if (!IsOpen(file) || !GetFileSizeEx(file.get(), &size) || size.QuadPart > 0x7FFFFFFF) {
        NoteLastError();
        return {};
    }
    std::string contents(std::size_t(size.QuadPart), '\0');
    DWORD read = 0;
    if (!ReadFile(file.get(), contents.data(), DWORD(contents.size()), &read, nullptr)) {
        NoteLastError();
        return {};
    }
    contents.resize(read);
    return contents;
}

bool WindowsFileSystem::WriteTo(HANDLE file, std::string_view contents) {
    DWORD written = 0;
    return (WriteFile(file, contents.data(), DWORD(contents.size()), &written, nullptr) &&
            written == contents.size()) ||
           NoteLastError();
}

bool WindowsFileSystem::Write(TextView path, std::string_view contents, WriteMode mode) {
    const bool append = mode == WriteMode::Append;
    const Handle file =
        Open(path, append ? FILE_APPEND_DATA : GENERIC_WRITE, append ? OPEN_ALWAYS : CREATE_ALWAYS);
    return IsOpen(file) ? WriteTo(file.get(), contents) : NoteLastError();
}

SwapResult WindowsFileSystem::Swap(TextView path, std::string_view before,
                                   std::string_view contents) {
    // Also refuses what cannot be written in place: a read-only file, a folder.
    const DWORD attributes = GetFileAttributesW(Wide(Text(path)));
    if (attributes != Missing &&
        (attributes & (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY)) != 0) {
        errors.Note(error::PathFileAccess, u"Path/File access error");
        return SwapResult::Failed;
    }
    const auto failed = [this] {
        NoteLastError();
        return SwapResult::Failed;
    };
    FileBeside aside, old;
    {
        // Closed before it is moved or deleted.
        Handle file;
        const auto create = [&file](TextView name) {
            file = Open(name, GENERIC_WRITE, CREATE_NEW);
            return IsOpen(file);
        };
        if (!aside.Make(path, u".new", create) || !WriteTo(file.get(), contents) ||
            !FlushFileBuffers(file.get())) {
            return failed();
        }
    }
    const auto unchanged = [&](TextView file) {
        return Length(file) <= 0 ? before.empty() : Read(file).value_or(std::string()) == before;
    };
    // A second name, by which the old file can still be read once it has been replaced. Not every
    // file system gives one.
    const bool linked = old.Make(path, u".old", [path](const Text& name) {
        return CreateHardLinkW(Wide(name), Wide(Text(path)), nullptr) != 0;
    });
    for (int attempt = 1;; ++attempt) {
        // Compared last of all, so that hardly any time is left to another program.
        if (!unchanged(path)) return SwapResult::Changed;
        if (aside.Replace(path)) {
            // It may have used even that: then what it wrote comes back.
            const bool tooLate = linked && !unchanged(old.Name()) && old.Replace(path);
            return tooLate ? SwapResult::Changed : SwapResult::Done;
        }
        const DWORD error = GetLastError();
        const bool isOpen = error == ERROR_SHARING_VIOLATION || error == ERROR_ACCESS_DENIED;
        if (!isOpen || attempt == MostAttempts) return failed();
        Sleep(AttemptPause);
    }
}

bool WindowsFileSystem::Rename(TextView from, TextView to) {
    return MoveFileExW(Wide(Text(from)), Wide(Text(to)), MOVEFILE_REPLACE_EXISTING) ||
           NoteLastError();
}

bool WindowsFileSystem::Delete(TextView path) {
    return DeleteFileW(Wide(Text(path))) || NoteLastError();
}

bool WindowsFileSystem::CreateFolder(TextView path) {
    const ObjectPtr scripting = automation.Create(u"Scripting.FileSystemObject");
    if (scripting) {
        errors.Clear();
        scripting->Call(u"CreateFolder", {Text(path)});
        return !errors;
    }
    return CreateDirectoryW(Wide(Text(path)), nullptr) || NoteLastError();
}

bool WindowsFileSystem::DeleteFolder(TextView path) {
    return RemoveDirectoryW(Wide(Text(path))) || NoteLastError();
}

std::vector<Text> WindowsFileSystem::FileNames(TextView folder, TextView ending) {
    std::vector<Text> names;
    EachIn(folder, [&](Text name, bool isFolder) {
        if (!isFolder && EndsWithFolded(name, ending)) names.push_back(std::move(name));
    });
    return names;
}

std::optional<std::vector<Text>> WindowsFileSystem::FolderNames(TextView folder) {
    std::vector<Text> names;
    const bool read = EachIn(folder, [&](Text name, bool isFolder) {
        if (isFolder && name != u"." && name != u"..") names.push_back(std::move(name));
    });
    return read ? std::optional(names) : std::nullopt;
}

Text WindowsFileSystem::ParentFolderName(TextView path) {
    const ObjectPtr scripting = automation.Create(u"Scripting.FileSystemObject");
    if (scripting) return AsText(scripting->Call(u"GetParentFolderName", {Text(path)}));
    const TextView whole = path.ends_with(u'\\') ? path.substr(0, path.size() - 1) : path;
    const std::size_t slash = whole.rfind(u'\\');
    return slash == TextView::npos ? Text() : Text(whole.substr(0, slash));
}

Text WindowsFileSystem::TempFolder() {
    char buffer[511];
    const DWORD length = GetTempPathA(sizeof buffer, buffer);
    const Text folder =
        length < sizeof buffer ? Text(CutAtNul(FromAnsi({buffer, length}))) : Text();
    // A folder that the code page has no name for, as below a user's with other letters, has a
    // short name that it has.
    constexpr DWORD LongestFolder = 511;
    wchar_t wide[LongestFolder], shortName[LongestFolder];
    const DWORD wideLength = GetTempPathW(LongestFolder, wide);
    if (wideLength >= LongestFolder || FromWide(wide, wideLength) == folder) return folder;
    const DWORD shortLength = GetShortPathNameW(wide, shortName, LongestFolder);
    if (shortLength == 0 || shortLength >= LongestFolder) return folder;
    const Text other = FromWide(shortName, shortLength);
    return FromAnsi(ToAnsi(other)) == other ? other : folder;
}

Text WindowsFileSystem::CreateTempFile(TextView folder, TextView prefix) {
    char buffer[MAX_PATH];
    if (!GetTempFileNameA(ToAnsi(folder).c_str(), ToAnsi(prefix).c_str(), 0, buffer)) {
        NoteLastError();
        return {};
    }
    return FromAnsi(buffer);
}

Text WindowsFileSystem::ReadProfileString(TextView path, TextView section, TextView key,
                                          TextView defaultValue) {
    char buffer[256];
    const DWORD length = GetPrivateProfileStringA(ToAnsi(section).c_str(), ToAnsi(key).c_str(),
                                                  ToAnsi(defaultValue).c_str(), buffer,
                                                  sizeof buffer, ToAnsi(path).c_str());
    return Text(CutAtNul(FromAnsi({buffer, length})));
}

bool WindowsFileSystem::WriteProfileString(TextView path, TextView section, TextView key,
                                           std::optional<TextView> value) {
    const std::string bytes = ToAnsi(value.value_or(TextView()));
    return WritePrivateProfileStringA(ToAnsi(section).c_str(), ToAnsi(key).c_str(),
                                      value ? bytes.c_str() : nullptr, ToAnsi(path).c_str()) != 0;
}

}  // namespace tellwick::windows
