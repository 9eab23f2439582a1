// loading.exe LIBRARY: prints the milliseconds that loading it takes, first into a bare process,
// then as a copy, once the system's libraries that it needs are there, as Outlook has them.
#include <windows.h>

#include <cstdio>
#include <string>

namespace {

// As long as nothing else was done before the connection that this is compared with: Wine's own
// programs are done with starting, and the processor had other things to do.
constexpr DWORD Rest = 700;

// 0 when it cannot be loaded.
double MillisecondsOfLoading(const wchar_t* library) {
    Sleep(Rest);
    LARGE_INTEGER frequency, start, end;
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&start);
    const HMODULE loaded = LoadLibraryW(library);
    QueryPerformanceCounter(&end);
    if (!loaded) return 0;
    return double(end.QuadPart - start.QuadPart) * 1000 / double(frequency.QuadPart);
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    if (count != 2) return 1;
    const double bare = MillisecondsOfLoading(arguments[1]);
    wchar_t folder[MAX_PATH] = L"";
    GetTempPathW(MAX_PATH, folder);
    const std::wstring copy = std::wstring(folder) + L"loading.dll";
    if (!CopyFileW(arguments[1], copy.c_str(), FALSE)) return 1;
    const double alone = MillisecondsOfLoading(copy.c_str());
    if (bare == 0 || alone == 0) return 1;
    std::printf("%.3f %.3f\n", bare, alone);
    return 0;
}
