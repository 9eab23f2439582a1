#include "windows/WindowsSerialPort.h"

#include <algorithm>
#include <array>
#include <mutex>
#include <string>

namespace tellwick::sender {

namespace {

constexpr DWORD AtOnce = 1024;  // bytes

windows::Handle MakeEvent() {
    return windows::Handle(CreateEventW(nullptr, FALSE, FALSE, nullptr));
}

// An operation that the system carries out meanwhile.
struct Overlapped : OVERLAPPED {
    Overlapped() : OVERLAPPED{}, done(CreateEventW(nullptr, TRUE, FALSE, nullptr)) {
        hEvent = done.get();
    }
    windows::Handle done;
    bool underWay = false;

    // Begun, if what the system answered says so.
    bool Begun(BOOL started) {
        underWay = started || GetLastError() == ERROR_IO_PENDING;
        return underWay;
    }
};

bool SetUp(HANDLE port, const SerialSettings& settings) {
    DCB state{};
    state.DCBlength = sizeof state;
    if (!GetCommState(port, &state)) return false;
    if (settings.baudRate > 0) state.BaudRate = DWORD(settings.baudRate);
    state.fBinary = TRUE;
    state.ByteSize = 8;
    state.Parity = BYTE(settings.parity);
    state.fParity = settings.parity != 0;
    state.StopBits = BYTE(settings.stopBits);
    state.fOutxCtsFlow = settings.rts;
    state.fRtsControl = settings.rts ? RTS_CONTROL_HANDSHAKE : RTS_CONTROL_ENABLE;
    state.fDtrControl = DTR_CONTROL_ENABLE;
    state.fOutxDsrFlow = state.fDsrSensitivity = FALSE;
    state.fOutX = state.fInX = FALSE;
    state.fErrorChar = state.fNull = state.fAbortOnError = FALSE;
    // A read waits for all that it wants, however long.
    COMMTIMEOUTS timeouts{};
    return SetCommState(port, &state) && SetCommTimeouts(port, &timeouts) &&
           PurgeComm(port, PURGE_RXCLEAR | PURGE_TXCLEAR);
}

}  // namespace

struct WindowsSerialPort::Line {
    Line(windows::Handle port, const MainThread& mainThread, Events events)
        : port(std::move(port)), mainThread(mainThread), events(std::move(events)) {}

    // The thread's work: reads and writes until the end, or until the port is gone.
    static void Run(const std::shared_ptr<Line>& line);
    // False when the port is gone.
    bool Read();
    bool Write();
    void Tell(const std::shared_ptr<Line>& line, DWORD count);

    windows::Handle port;
    windows::Handle wake = MakeEvent();
    const MainThread mainThread;
    const Events events;
    bool wanted = true;  // of the main thread only

    CriticalSection lock;
    std::string toWrite;  // under the lock, and so is what follows
    std::string received;
    bool ended = false;

    // Of the thread only.
    Overlapped reading;
    Overlapped writing;
    std::array<char, AtOnce> input{};
    std::string output;  // that the system is writing
};

// All that is there; where there is nothing, the next byte.
bool WindowsSerialPort::Line::Read() {
    DWORD errors = 0;
    COMSTAT state{};
    if (!ClearCommError(port.get(), &errors, &state)) return false;
    const DWORD count = std::clamp<DWORD>(state.cbInQue, 1, AtOnce);
    return reading.Begun(ReadFile(port.get(), input.data(), count, nullptr, &reading));
}

bool WindowsSerialPort::Line::Write() {
    {
        const std::lock_guard hold(lock);
        if (toWrite.empty()) return true;
        output.swap(toWrite);
        toWrite.clear();
    }
    return writing.Begun(
        WriteFile(port.get(), output.data(), DWORD(output.size()), nullptr, &writing));
}

void WindowsSerialPort::Line::Tell(const std::shared_ptr<Line>& line, DWORD count) {
    {
        const std::lock_guard hold(lock);
        received.append(input.data(), count);
    }
    mainThread.Post([line] {
        std::string bytes;
        {
            const std::lock_guard hold(line->lock);
            bytes.swap(line->received);
        }
        if (line->wanted && !bytes.empty()) line->events.received(bytes);
    });
}

void WindowsSerialPort::Line::Run(const std::shared_ptr<Line>& line) {
    Line& self = *line;
    bool there = self.Read();
    while (there) {
        {
            const std::lock_guard hold(self.lock);
            if (self.ended) break;
        }
        const std::array<HANDLE, 3> events{self.reading.hEvent, self.wake.get(),
                                           self.writing.hEvent};
        const DWORD count = self.writing.underWay ? 3 : 2;
        WaitForMultipleObjects(count, events.data(), FALSE, INFINITE);
        DWORD bytes = 0;
        if (GetOverlappedResult(self.port.get(), &self.reading, &bytes, FALSE)) {
            self.reading.underWay = false;
            // Nothing is what a port answers that is gone.
            there = bytes > 0;
            if (there) self.Tell(line, bytes);
            there = there && self.Read();
        } else if (GetLastError() != ERROR_IO_INCOMPLETE) {
            there = self.reading.underWay = false;
        }
        if (self.writing.underWay &&
            (GetOverlappedResult(self.port.get(), &self.writing, &bytes, FALSE) ||
             GetLastError() != ERROR_IO_INCOMPLETE)) {
            self.writing.underWay = false;
            there = there && bytes == self.output.size();
        }
        if (there && !self.writing.underWay) there = self.Write();
    }
    CancelIo(self.port.get());
    for (Overlapped* const operation : {&self.reading, &self.writing}) {
        DWORD bytes = 0;
        if (operation->underWay) GetOverlappedResult(self.port.get(), operation, &bytes, TRUE);
    }
    self.mainThread.Post([line] {
        if (line->wanted) line->events.gone();
    });
}

std::unique_ptr<WindowsSerialPort> WindowsSerialPort::Open(const SerialSettings& settings,
                                                           const MainThread& mainThread,
                                                           Events events) {
    // The only name that ports above COM9 have.
    windows::Handle port(CreateFileW(windows::Wide(u"\\\\.\\" + settings.port),
                                     GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                                     FILE_FLAG_OVERLAPPED, nullptr));
    if (port.get() == INVALID_HANDLE_VALUE || !SetUp(port.get(), settings)) return nullptr;
    auto line = std::make_shared<Line>(std::move(port), mainThread, std::move(events));
    windows::Handle thread = StartThread([line] { Line::Run(line); });
    if (!thread) return nullptr;
    return std::unique_ptr<WindowsSerialPort>(
        new WindowsSerialPort(std::move(line), std::move(thread)));
}

WindowsSerialPort::WindowsSerialPort(std::shared_ptr<Line> line, windows::Handle thread)
    : line(std::move(line)), thread(std::move(thread)) {}

WindowsSerialPort::~WindowsSerialPort() {
    line->wanted = false;
    {
        const std::lock_guard hold(line->lock);
        line->ended = true;
    }
    SetEvent(line->wake.get());
    // The port is to be free for the next one who opens it; a driver that hangs is left to itself.
    constexpr DWORD LongestWait = 2000;
    if (WaitForSingleObject(thread.get(), LongestWait) == WAIT_OBJECT_0) line->port.reset();
}

void WindowsSerialPort::Write(std::string_view bytes) {
    const std::lock_guard hold(line->lock);
    line->toWrite += bytes;
    SetEvent(line->wake.get());
}

std::size_t WindowsSerialPort::Unsent() const {
    const std::lock_guard hold(line->lock);
    return line->toWrite.size();
}

}  // namespace tellwick::sender
