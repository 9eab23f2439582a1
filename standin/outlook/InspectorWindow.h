// An inspector on the screen: one item, to read.
#pragma once

#include "outlook/Frame.h"

namespace tellwick::standin {

class InspectorWindow : public Frame {
public:
    static constexpr wchar_t ClassName[] = L"OutlookStandInInspector";

    InspectorWindow(const Look& look, std::shared_ptr<Inspector> inspector);

    void Refresh() override;

protected:
    void Layout(const RECT& inside) override;
    void Command(WORD identifier, WORD code) override;
    void Close() override;
    std::shared_ptr<Item> CurrentItem() const override { return inspector->item; }

private:
    Text HeaderText() const;

    std::shared_ptr<Inspector> inspector;
    HWND header = nullptr;
    HWND body = nullptr;
};

}  // namespace tellwick::standin
