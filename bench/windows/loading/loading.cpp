// loading.exe LIBRARY: prints the milliseconds that loading it into a bare process takes.
#include <windows.h>

#include <cstdio>

int wmain(int count, wchar_t** arguments) {
    LARGE_INTEGER frequency, start, end;
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&start);
    const HMODULE library = count == 2 ? LoadLibraryW(arguments[1]) : nullptr;
    QueryPerformanceCounter(&end);
    if (!library) return 1;
    std::printf("%.3f\n",
                double(end.QuadPart - start.QuadPart) * 1000 / double(frequency.QuadPart));
    return 0;
}
