// A main or item window on the screen: what explorers and inspectors have in common.
#pragma once

#include <windows.h>

#include <memory>
#include <utility>

#include "model/OutlookModel.h"
#include "outlook/Bar.h"
#include "outlook/Look.h"

namespace tellwick::standin {

class Frame {
public:
    virtual ~Frame();
    Frame(const Frame&) = delete;
    Frame& operator=(const Frame&) = delete;

    HWND Handle() const { return window; }
    const std::shared_ptr<Window>& Model() const { return model; }
    const Bar& Bars() const { return *bar; }
    // Shows what the model has now.
    virtual void Refresh();
    // Brings the window to the front without telling the model, which knows it already.
    void Raise();
    // Whether the user, not the model, brought the window to the front since this was last asked.
    bool TakeUserActivation() { return std::exchange(userActivation, false); }

protected:
    // Identifier of the child with the item's body.
    static constexpr int ReadOnlyText = 9;

    Frame(const Look& look, std::shared_ptr<Window> model);

    // Creates the window, not yet visible, and its toolbars or its ribbon. Beside a ribbon there is
    // no menu.
    void Create(const wchar_t* className, HMENU menu, int width, int height);
    // Places the children below that.
    virtual void Layout(const RECT& inside) = 0;
    // A menu entry, an accelerator, a control's notification.
    virtual void Command(WORD identifier, WORD code) = 0;
    virtual LRESULT Notify(const NMHDR&) { return 0; }
    // Messages the window has for itself, from WM_APP on.
    virtual void OwnMessage(UINT) {}
    virtual void Close() = 0;
    // The item that Reply and Delete apply to; null for none.
    virtual std::shared_ptr<Item> CurrentItem() const = 0;

    // What Outlook's own buttons and menu entries do.
    void RunBuiltIn(const Text& caption);
    HWND AddChild(const wchar_t* className, DWORD style, DWORD extendedStyle, int identifier);
    void LayOutAll();

    const Look& look;
    HWND window = nullptr;
    HWND focus = nullptr;  // the child that has the keyboard when the window is active

private:
    Text Title() const;
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM first, LPARAM second);
    LRESULT Handle(UINT message, WPARAM first, LPARAM second);

    std::shared_ptr<Window> model;
    std::unique_ptr<Bar> bar;
    bool raising = false;
    bool userActivation = false;
};

}  // namespace tellwick::standin
