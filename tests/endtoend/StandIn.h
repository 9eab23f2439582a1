// One stand-in Outlook with the add-in in it, driven through its command pipe: one command a line,
// one answer each. With it comes what every case with an Outlook needs: the machine and the
// desktop.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

#include "endtoend/Child.h"
#include "endtoend/Desktop.h"
#include "endtoend/Machine.h"
#include "endtoend/Printing.h"

namespace tellwick::endtoend {

class StandIn {
public:
    // Starts it. Commands are answered once the connection of the add-in has returned.
    explicit StandIn(int version, const std::wstring& options = L"");
    ~StandIn();
    StandIn(const StandIn&) = delete;
    StandIn& operator=(const StandIn&) = delete;

    // The answer behind "ok"; a case fails on "error", or if nothing comes within ten seconds.
    std::string Command(const std::string& command);
    // The answer's entries, where it is a list.
    std::vector<std::string> List(const std::string& command);

    // Brings an explorer to the front and clicks its button on the toolbar or the ribbon with the
    // mouse.
    void ClickButton(int explorer, const std::string& caption);

    HWND Window(int explorer);
    // Whether the add-in's button and entry, with their pictures, are on a window's command bars.
    bool HasBars(const std::string& explorer);

    HANDLE Process() const { return child->Process(); }

    struct End {
        DWORD exitCode;  // 0: the add-in left nothing behind
        std::string report;
    };
    // Quits Outlook as its user would and waits for its end.
    End Quit();
    End WaitForEnd();

private:
    // Takes what has been printed meanwhile.
    void Read();
    bool TakeAnswer(std::string& answer);

    std::optional<Child> child;
    HANDLE input = nullptr;
    HANDLE output = nullptr;
    std::string unread;
};

// Passes only when the stand-in found no reference, no event handler and no library left.
void CheckClean(const StandIn::End& end);

}  // namespace tellwick::endtoend
