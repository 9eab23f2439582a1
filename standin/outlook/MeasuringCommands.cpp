// The commands that measure.
#include <algorithm>
#include <memory>
#include <optional>
#include <vector>

#include "outlook/ArrayReading.h"
#include "outlook/CommandText.h"
#include "outlook/Commands.h"
#include "outlook/Stopwatch.h"

namespace tellwick::standin {

namespace {

// A key of the keyboard that gives the character, pressed and let go as its driver does it.
void PressKeyOf(char16_t character) {
    const SHORT key = VkKeyScanW(wchar_t(character));
    Require(key != -1, "no key has that character");
    std::vector<INPUT> inputs;
    const auto add = [&](WORD code, DWORD flags) {
        INPUT input{};
        input.type = INPUT_KEYBOARD;
        input.ki.wVk = code;
        input.ki.wScan = WORD(MapVirtualKeyW(code, MAPVK_VK_TO_VSC));
        input.ki.dwFlags = flags;
        inputs.push_back(input);
    };
    const bool shift = (HIBYTE(key) & 1) != 0;
    if (shift) add(VK_SHIFT, 0);
    add(LOBYTE(key), 0);
    add(LOBYTE(key), KEYEVENTF_KEYUP);
    if (shift) add(VK_SHIFT, KEYEVENTF_KEYUP);
    SendInput(UINT(inputs.size()), inputs.data(), sizeof(INPUT));
}

}  // namespace

Text Commands::Time(const Words& words) {
    const Held held(dispatcher);
    Stopwatch watch;
    double longest = 0;
    const auto noMore = [](auto* timing) { *timing = nullptr; };
    outlook.aroundHandler = [&](const std::function<void()>& handler) {
        const double from = watch.Elapsed();
        handler();
        longest = std::max(longest, watch.Elapsed() - from);
    };
    const std::unique_ptr<decltype(outlook.aroundHandler), decltype(noMore)> timing(
        &outlook.aroundHandler, noMore);
    Perform(words);
    desk.RunMessages(0);
    const double elapsed = watch.Elapsed();
    const std::optional<double> queued = watch.Queued();
    wchar_t title[256] = L"";
    GetWindowTextW(GetActiveWindow(), title, 256);
    return RealText(elapsed) + (queued ? u" queued " + RealText(*queued) : Text()) + u" handler " +
           RealText(longest) + u" " + FromWide(title);
}

Text Commands::ArrayContacts(const Words&) {
    const ComPtr<IDispatch> application = objects.Wrap(outlook.Application());
    const Stopwatch watch;
    const long count = ReadContactArrays(*application.Get());
    return RealText(watch.Elapsed()) + u" arrays " + NumberText(count);
}

Text Commands::UntilFile(const Words& words) {
    constexpr double Longest = 60000;
    const Held held(dispatcher);
    const Stopwatch watch;
    while (GetFileAttributesW(Wide(words[0])) == INVALID_FILE_ATTRIBUTES) {
        Require(watch.Elapsed() < Longest, "no such file");
        desk.RunMessages(5);
    }
    return RealText(watch.Elapsed());
}

// Each key's time begins when it waits to be taken, as one of a keyboard does, and ends when all is
// done that it set off, its painting too.
Text Commands::TypeKeys(const Words& words) {
    constexpr DWORD BetweenKeys = 50;
    Require(!words[0].empty(), "nothing to type");
    const Held held(dispatcher);
    std::vector<double> times;
    for (const char16_t character : words[0]) {
        desk.RunMessages(BetweenKeys);
        PressKeyOf(character);
        const Stopwatch watch;
        desk.RunMessages(0);
        times.push_back(watch.Elapsed());
    }
    std::sort(times.begin(), times.end());
    return u"median " + RealText(times[times.size() / 2]) + u" worst " + RealText(times.back());
}

Text Commands::Times(const Words&) {
    return u"OnConnection " + RealText(loader.connectionTime) + u" shutdown " +
           RealText(loader.shutdownTime);
}

Text Commands::LongestTick(const Words&) {
    return u"tick " + RealText(desk.TakeLongestTick());
}

Text Commands::Memory(const Words&) {
    return u"before " + NumberText(std::int64_t(loader.bytesBeforeConnection)) + u" after " +
           NumberText(std::int64_t(loader.bytesAfterConnection)) + u" now " +
           NumberText(std::int64_t(PrivateBytes()));
}

}  // namespace tellwick::standin
