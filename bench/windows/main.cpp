// Measurements over the real file system; the registry stays the one in memory.
#include "Measures.h"
#include "platform/MemoryPlatform.h"
#include "windows/WindowsFileSystem.h"
#include "windows/WindowsLocale.h"

using namespace tellwick;

int main() {
    test::MemoryPlatform memory;
    windows::WindowsFileSystem fileSystem(memory.errors, memory.automation);
    windows::WindowsLocale locale;
    test::Modules modules({memory.errors, memory.registry, fileSystem, memory.programs,
                           memory.messageLoop, memory.dialogs, memory.clock, locale,
                           memory.automation, memory.bitmaps, memory.timers, memory.locks});
    const Text folder = fileSystem.TempFolder();
    bench::MeasureSettings(modules, folder);
    bench::CompareWithProfileFunctions(modules, folder);
}
