// loading.exe LIBRARY: prints the milliseconds that loading it takes into a process that has
// nothing else but the system's libraries that it needs, as Outlook has them.
#include <windows.h>

#include <cstdio>
#include <string>

int wmain(int count, wchar_t** arguments) {
    if (count != 2 || !LoadLibraryW(arguments[1])) return 1;
    wchar_t folder[MAX_PATH] = L"";
    GetTempPathW(MAX_PATH, folder);
    const std::wstring copy = std::wstring(folder) + L"loading.dll";
    if (!CopyFileW(arguments[1], copy.c_str(), FALSE)) return 1;
    LARGE_INTEGER frequency, start, end;
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&start);
    const HMODULE library = LoadLibraryW(copy.c_str());
    QueryPerformanceCounter(&end);
    if (!library) return 1;
    std::printf("%.3f\n",
                double(end.QuadPart - start.QuadPart) * 1000 / double(frequency.QuadPart));
    return 0;
}
