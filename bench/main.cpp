// Native measurements, over the platform in memory: what the add-in's own code costs.
#include "Composing.h"
#include "Measures.h"
#include "platform/MemoryPlatform.h"

using namespace tellwick;

int main() {
    const auto measure = [](const auto& what) {
        test::MemoryPlatform platform;
        test::Modules modules(platform.Ports());
        what(modules);
    };
    measure(bench::MeasureTrace);
    measure(bench::MeasureLanguage);
    measure([](test::Modules& modules) { bench::MeasureSettings(modules, u"C:\\Data\\"); });
    bench::MeasureComposing();
    bench::MeasurePeople();
}
