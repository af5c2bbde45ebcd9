#include "app/process.h"

#include <QDir>
#include <QFileInfo>

#include <io.h>

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <shellapi.h>

namespace kelvo {

namespace {

bool GoesSomewhere(DWORD standardHandle)
{
    const HANDLE handle = GetStdHandle(standardHandle);
    return handle && handle != INVALID_HANDLE_VALUE && GetFileType(handle) != FILE_TYPE_UNKNOWN;
}

/// A windowed program has no text output of its own; what was redirected stays where it is.
void UseParentConsole()
{
    const bool output = GoesSomewhere(STD_OUTPUT_HANDLE);
    const bool errors = GoesSomewhere(STD_ERROR_HANDLE);
    if ((output && errors) || !AttachConsole(ATTACH_PARENT_PROCESS))
        return;
    if (!output)
        std::freopen("CONOUT$", "w", stdout);
    if (!errors)
        std::freopen("CONOUT$", "w", stderr);
}

/// Where a file or a folder really is, links followed; empty when it cannot be told.
QString FinalPath(const QString &path)
{
    const std::wstring name = QDir::toNativeSeparators(path).toStdWString();
    constexpr DWORD ShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const HANDLE file =
        CreateFileW(name.c_str(), 0, ShareAll, nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return {};
    std::wstring target(GetFinalPathNameByHandleW(file, nullptr, 0, 0), L'\0');
    target.resize(GetFinalPathNameByHandleW(file, target.data(), DWORD(target.size()), 0));
    CloseHandle(file);
    return QString::fromStdWString(target);
}

} // namespace

void PrepareProcess()
{
    // Nothing is loaded from the working folder: a settings file's folder may hold anything.
    SetDllDirectoryW(L"");
    // A failing call on a slow line keeps the window from answering longer than the system waits.
    DisableProcessWindowsGhosting();
    UseParentConsole();
}

// The session's end asks the windows.
void OnTermination(QObject *, const std::function<void()> &)
{
}

// A console takes wide characters, whatever its code page; files and pipes take UTF-8.
void Print(std::FILE *stream, const QString &text)
{
    const int file = _fileno(stream);
    if (file < 0)
        return;
    const HANDLE handle = reinterpret_cast<HANDLE>(_get_osfhandle(file));
    DWORD count = 0;
    if (GetConsoleMode(handle, &count)) {
        WriteConsoleW(handle, text.utf16(), DWORD(text.size()), &count, nullptr);
        return;
    }
    std::fputs(text.toUtf8().constData(), stream);
    std::fflush(stream);
}

// An old program that may not write into its folder has its files redirected into the user's; the 32-bit
// console counts as one for its device library's sake.
bool StandsWhereItWasPut(const QString &path)
{
    const QFileInfo file(path);
    return FinalPath(path) == FinalPath(file.path()) + '\\' + file.fileName();
}

QStringList ProcessArguments(int, char **)
{
    QStringList arguments;
    int count = 0;
    LPWSTR *words = CommandLineToArgvW(GetCommandLineW(), &count);
    for (int index = 1; words && index < count; ++index)
        arguments += QString::fromWCharArray(words[index]);
    LocalFree(words);
    return arguments;
}

} // namespace kelvo
