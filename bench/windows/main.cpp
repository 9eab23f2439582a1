// Measurements over the real file system; the registry stays the one in memory.
#include <cstdlib>

#include "Measures.h"
#include "platform/MemoryPlatform.h"
#include "windows/SystemPorts.h"
#include "windows/WindowsFileSystem.h"

using namespace tellwick;

namespace tellwick::windows {

void ReportException() noexcept {
    std::abort();
}

}  // namespace tellwick::windows

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
