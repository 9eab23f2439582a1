// A window's command bars on the screen: one row for each bar, drawn from the object model.
#pragma once

#include <memory>

#include "model/CommandBars.h"
#include "outlook/Bar.h"

namespace tellwick::standin {

class Toolbar : public Bar {
public:
    using Clicked = std::function<void(const std::shared_ptr<CommandBarControl>&)>;

    Toolbar(const Look& look, HWND parent, std::shared_ptr<CommandBars> bars, Clicked clicked);

protected:
    int Place() override;
    void Paint(HDC context, const RECT& client) override;
    void PaintButton(HDC context, std::size_t index, State state) override;

private:
    void AddRow(CommandBar& bar, int& top);
    void OpenMenu(const std::shared_ptr<CommandBarPopup>& popup, const RECT& below);

    std::shared_ptr<CommandBars> bars;
    Clicked clicked;
    std::vector<std::shared_ptr<CommandBarControl>> controls;  // of the buttons, in their order
    std::vector<int> rowTops;
};

}  // namespace tellwick::standin
