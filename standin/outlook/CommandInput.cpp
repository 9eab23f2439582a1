#include "outlook/CommandInput.h"

#include <memory>
#include <string>

namespace tellwick::standin {

namespace {

struct Reader {
    HANDLE source;
    Dispatcher& dispatcher;
    Commands& commands;
    std::function<void()> atEnd;
};

DWORD WINAPI ReadLines(void* parameter) {
    const std::unique_ptr<Reader> reader(static_cast<Reader*>(parameter));
    std::string line;
    char unit = 0;
    DWORD count = 0;
    const auto post = [&] {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        Commands& commands = reader->commands;
        reader->dispatcher.Post([&commands, text = line] { commands.Run(text); });
        line.clear();
    };
    while (ReadFile(reader->source, &unit, 1, &count, nullptr) && count == 1) {
        if (unit == '\n') {
            post();
        } else {
            line += unit;
        }
    }
    if (!line.empty()) post();
    reader->dispatcher.Post(reader->atEnd);
    return 0;
}

}  // namespace

void ReadCommands(HANDLE source, Dispatcher& dispatcher, Commands& commands,
                  std::function<void()> atEnd) {
    auto reader = std::make_unique<Reader>(Reader{source, dispatcher, commands, std::move(atEnd)});
    const HANDLE thread = CreateThread(nullptr, 0, ReadLines, reader.get(), 0, nullptr);
    if (!thread) return;
    static_cast<void>(reader.release());  // the thread has it now
    CloseHandle(thread);
}

}  // namespace tellwick::standin
