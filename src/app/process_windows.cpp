#include "app/process.h"

#include <cstdio>

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <shellapi.h>

namespace kelvo {

namespace {

/// A windowed program has no text output of its own; one that was redirected stays where it is.
void UseParentConsole()
{
    const bool redirected = GetStdHandle(STD_ERROR_HANDLE) || GetStdHandle(STD_OUTPUT_HANDLE);
    if (redirected || !AttachConsole(ATTACH_PARENT_PROCESS))
        return;
    std::freopen("CONOUT$", "w", stdout);
    std::freopen("CONOUT$", "w", stderr);
}

} // namespace

void PrepareProcess()
{
    // Never from the working folder: a settings file's folder may hold anything.
    SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_DEFAULT_DIRS);
    // A failing call on a slow line keeps the window from answering longer than the system waits.
    DisableProcessWindowsGhosting();
    UseParentConsole();
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
