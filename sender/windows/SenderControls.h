// What the sender's main window shows: its controls, and where they stand.
#pragma once

#include <memory>

#include "settings/LanguageTexts.h"
#include "windows/MessageFont.h"
#include "windows/SmsList.h"

namespace tellwick::sender {

class SenderControls {
public:
    enum Identifier {
        CheckOn = 100,
        ButtonAgain,
        ButtonDelete,
        ButtonSettings,
        ButtonPin,
        TextSearch,
        List
    };

    SenderControls(SmsList& list, LanguageTexts& language) : list(list), language(language) {}

    // In the order of the Tab key. False when the system refuses.
    bool Create(HWND newWindow);
    bool Made() const { return font != nullptr; }
    HWND Window(Identifier identifier) const { return GetDlgItem(window, identifier); }

    // The window has another size, or another resolution, for which the system suggests a place.
    void Arrange();
    void ChangeResolution(int resolution, const RECT& suggested);
    void Limit(MINMAXINFO& limits) const;
    SIZE First() const;  // of the whole window

    void Enable(Identifier identifier, bool enabled) const;
    void ShowPinButton(bool show);
    void SetStatus(TextView text);
    Text SearchedFor() const;
    // Of so many that wait: how far those are that waited together, when they are many.
    void ShowProgress(std::size_t waiting);

private:
    HWND Make(const wchar_t* className, TextView text, DWORD style, int identifier) const;
    void SetResolution(int resolution);
    SIZE Least() const;
    int ButtonWidth(Identifier identifier) const;

    SmsList& list;
    LanguageTexts& language;
    std::unique_ptr<windows::MessageFont> font;
    HWND window = nullptr;
    HWND labelSearch = nullptr;
    HWND listWindow = nullptr;
    HWND status = nullptr;
    HWND progress = nullptr;
    Text shownStatus;
    std::size_t lastWaiting = 0;
    std::size_t total = 0;  // of those that waited together
};

}  // namespace tellwick::sender
