#include "windows/WindowsDialogs.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <vector>

#include "windows/FormWindow.h"
#include "windows/Lifetime.h"
#include "windows/Server.h"
#include "windows/VisualStyles.h"

namespace tellwick::windows {

namespace {

// The system's own captions of its answers, in the user's language.
Text ButtonCaption(Answer answer) {
    constexpr UINT FirstButtonText = 800;  // OK; the others follow in the order of their answers
    wchar_t text[64];
    const int length =
        LoadStringW(GetModuleHandleW(L"user32.dll"), FirstButtonText + UINT(answer) - 1, text, 64);
    if (length > 0) return FromWide(text, std::size_t(length));
    return answer == Answer::Ok ? u"OK" : u"Cancel";
}

const wchar_t* SystemIcon(std::uint32_t icon) {
    switch (icon) {
        case box::IconError:
            return MAKEINTRESOURCEW(32513);
        case box::IconQuestion:
            return MAKEINTRESOURCEW(32514);
        case box::IconExclamation:
            return MAKEINTRESOURCEW(32515);
        case box::IconInformation:
            return MAKEINTRESOURCEW(32516);
        default:
            return nullptr;
    }
}

// A small modal dialog: an icon, a text, optionally one more control, and buttons in a row.
class SmallDialog {
public:
    SmallDialog(TextView title, TextView text, const wchar_t* icon) : title(title), text(text) {
        if (icon) this->icon = LoadIconW(nullptr, icon);
    }

    // One more control under the text; `read` is called with it when the dialog is answered.
    void AddControl(const wchar_t* windowClass, DWORD style, DWORD extendedStyle, TextView content,
                    std::function<void(HWND, Answer)> read) {
        extra = {windowClass, style, extendedStyle, Text(content), std::move(read)};
    }

    bool checkFirst = false;  // the added control is a check box that begins checked

    // `escape` is the answer of Escape and of the frame's close box.
    Answer Run(std::vector<Choice> row, Answer escape) {
        const VisualStyles styles;
        buttons = std::move(row);
        escapeAnswer = escape;
        struct {
            DLGTEMPLATE dialog;
            WORD menu, windowClass, caption;
        } empty{};
        empty.dialog.style = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME | DS_SETFOREGROUND;
        const INT_PTR answer =
            DialogBoxIndirectParamW(Library(), &empty.dialog, FormWindow::ActiveWindow(),
                                    &Procedure, reinterpret_cast<LPARAM>(this));
        return answer > 0 ? Answer(answer) : escape;
    }

private:
    struct Extra {
        const wchar_t* windowClass = nullptr;
        DWORD style = 0;
        DWORD extendedStyle = 0;
        Text content;
        std::function<void(HWND, Answer)> read;
    };

    HWND Add(HWND dialog, const wchar_t* windowClass, const Text& content, DWORD style,
             DWORD extendedStyle, const RECT& place, Answer identifier) {
        const HWND control = CreateWindowExW(
            extendedStyle, windowClass, Wide(content), WS_CHILD | WS_VISIBLE | style, place.left,
            place.top, place.right - place.left, place.bottom - place.top, dialog,
            reinterpret_cast<HMENU>(INT_PTR(identifier)), Library(), nullptr);
        SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font->Get()), FALSE);
        return control;
    }

    void Build(HWND dialog) {
        font.emplace(ResolutionOf(dialog));
        const FontMetrics& metrics = font->Metrics();
        const int margin = metrics.Horizontal(8);
        const int gap = metrics.Vertical(7);
        const int buttonHeight = metrics.Vertical(14);
        const int iconSize = icon ? GetSystemMetrics(SM_CXICON) : 0;
        const int textLeft = margin + (icon ? iconSize + margin : 0);
        const SIZE textSize = font->Measure(text, metrics.Horizontal(220));

        int buttonWidth = metrics.Horizontal(50);
        for (const Choice& button : buttons) {
            buttonWidth = std::max(buttonWidth, int(font->Measure(button.caption).cx) + 2 * margin);
        }
        const int rowWidth = int(buttons.size()) * (buttonWidth + margin) - margin;
        const int extraWidth =
            extra.windowClass
                ? std::max(int(font->Measure(extra.content).cx) + metrics.Horizontal(14),
                           metrics.Horizontal(200))
                : 0;
        const int contentWidth =
            std::max({int(textSize.cx) + textLeft - margin, rowWidth,
                      extraWidth + textLeft - margin, metrics.Horizontal(120)});

        SetWindowTextW(dialog, Wide(title));
        int y = margin;
        if (icon) {
            const HWND picture = Add(dialog, L"STATIC", {}, SS_ICON, 0,
                                     {margin, y, margin + iconSize, y + iconSize}, Answer::None);
            SendMessageW(picture, STM_SETICON, reinterpret_cast<WPARAM>(icon), 0);
        }
        Add(dialog, L"STATIC", text, SS_LEFT | SS_NOPREFIX, 0,
            {textLeft, y, textLeft + textSize.cx + 2, y + textSize.cy}, Answer::None);
        y += std::max(int(textSize.cy), iconSize) + gap;
        if (extra.windowClass) {
            const int height = metrics.Vertical(13);
            extraWindow = Add(dialog, extra.windowClass, extra.content, extra.style | WS_TABSTOP,
                              extra.extendedStyle, {textLeft, y, margin + contentWidth, y + height},
                              Answer::None);
            if (checkFirst) SendMessageW(extraWindow, BM_SETCHECK, BST_CHECKED, 0);
            y += height + gap;
        }
        int x = margin + (contentWidth - rowWidth) / 2;
        HWND first = nullptr;
        for (const Choice& button : buttons) {
            const DWORD style = WS_TABSTOP | (first ? BS_PUSHBUTTON : BS_DEFPUSHBUTTON);
            const HWND made = Add(dialog, L"BUTTON", button.caption, style, 0,
                                  {x, y, x + buttonWidth, y + buttonHeight}, button.answer);
            if (!first) first = made;
            x += buttonWidth + margin;
        }
        y += buttonHeight + margin;

        const auto [width, height] = SizeAround(dialog, {contentWidth + 2 * margin, y});
        const HWND owner = GetWindow(dialog, GW_OWNER);
        MONITORINFO monitor{};
        monitor.cbSize = sizeof monitor;
        GetMonitorInfoW(MonitorFromWindow(owner ? owner : dialog, MONITOR_DEFAULTTOPRIMARY),
                        &monitor);
        RECT around = monitor.rcWork;
        if (owner && !IsIconic(owner)) GetWindowRect(owner, &around);
        const LONG left = std::clamp((around.left + around.right - width) / 2, monitor.rcWork.left,
                                     std::max(monitor.rcWork.left, monitor.rcWork.right - width));
        const LONG top = std::clamp((around.top + around.bottom - height) / 2, monitor.rcWork.top,
                                    std::max(monitor.rcWork.top, monitor.rcWork.bottom - height));
        SetWindowPos(dialog, HWND_TOP, left, top, width, height, 0);
        const bool field = extraWindow && lstrcmpiW(extra.windowClass, L"EDIT") == 0;
        ::SetFocus(field ? extraWindow : first);
    }

    static INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM first, LPARAM second) {
        const Lifetime running;
        const MonitorAware aware(MonitorAware::Window);
        try {
            if (message == WM_INITDIALOG) {
                SetWindowLongPtrW(dialog, DWLP_USER, second);
                reinterpret_cast<SmallDialog*>(second)->Build(dialog);
                return FALSE;  // the focus is set
            }
            auto* self = reinterpret_cast<SmallDialog*>(GetWindowLongPtrW(dialog, DWLP_USER));
            if (self && message == WM_COMMAND && HIWORD(first) == BN_CLICKED) {
                return self->Close(dialog, Answer(LOWORD(first)));
            }
        } catch (...) {
            ReportException();
        }
        return FALSE;
    }

    INT_PTR Close(HWND dialog, Answer answer) {
        const bool offered = std::any_of(buttons.begin(), buttons.end(), [=](const Choice& button) {
            return button.answer == answer;
        });
        if (!offered && answer != Answer::Cancel) return FALSE;
        if (offered && extra.read) extra.read(extraWindow, answer);
        EndDialog(dialog, INT_PTR(offered ? answer : escapeAnswer));
        return TRUE;
    }

    const Text title;
    const Text text;
    HICON icon = nullptr;
    Extra extra;
    HWND extraWindow = nullptr;
    std::vector<Choice> buttons;
    Answer escapeAnswer = Answer::None;
    std::optional<MessageFont> font;  // of the monitor that the dialog is on
};

}  // namespace

Answer WindowsDialogs::MessageBox(TextView text, std::uint32_t flags, TextView title) {
    const VisualStyles styles;
    return Answer(MessageBoxW(FormWindow::ActiveWindow(), Wide(Text(text)), Wide(Text(title)),
                              flags | MB_SETFOREGROUND));
}

Answer WindowsDialogs::CheckedMessageBox(TextView text, const std::vector<Choice>& choices,
                                         std::uint32_t icon, TextView title, TextView checkBoxText,
                                         bool& checked) {
    SmallDialog dialog(title, text, SystemIcon(icon));
    const bool before = std::exchange(checked, false);
    if (!checkBoxText.empty()) {
        dialog.AddControl(L"BUTTON", BS_AUTOCHECKBOX, 0, checkBoxText, [&](HWND control, Answer) {
            checked = SendMessageW(control, BM_GETCHECK, 0, 0) == BST_CHECKED;
        });
    }
    dialog.checkFirst = before;
    return dialog.Run(choices, choices.back().answer);
}

Text WindowsDialogs::InputBox(TextView prompt, TextView title) {
    SmallDialog dialog(title, prompt, nullptr);
    Text input;
    dialog.AddControl(
        L"EDIT", ES_AUTOHSCROLL, WS_EX_CLIENTEDGE, {}, [&](HWND control, Answer answer) {
            if (answer != Answer::Ok) return;
            input.resize(std::size_t(GetWindowTextLengthW(control)) + 1);
            input.resize(std::size_t(GetWindowTextW(
                control, reinterpret_cast<wchar_t*>(input.data()), int(input.size()))));
        });
    dialog.Run(
        {{Answer::Ok, ButtonCaption(Answer::Ok)}, {Answer::Cancel, ButtonCaption(Answer::Cancel)}},
        Answer::Cancel);
    return input;
}

}  // namespace tellwick::windows
