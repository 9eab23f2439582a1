#include "outlook/Look.h"

#include "outlook/Com.h"

namespace tellwick::standin {

Look::Look(TextView language) {
    texts.Speak(language);
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    font = CreateFontIndirectW(&metrics.lfMessageFont);
    const HDC screen = GetDC(nullptr);
    dotsPerInch = GetDeviceCaps(screen, LOGPIXELSY);
    const HGDIOBJ before = SelectObject(screen, font);
    TEXTMETRICW text{};
    GetTextMetricsW(screen, &text);
    lineHeight = text.tmHeight;
    SelectObject(screen, before);
    ReleaseDC(nullptr, screen);
}

Look::~Look() {
    DeleteObject(font);
}

int Look::TextWidth(const Text& text) const {
    const HDC screen = GetDC(nullptr);
    const HGDIOBJ before = SelectObject(screen, font);
    SIZE size{};
    GetTextExtentPoint32W(screen, Wide(text), int(text.size()), &size);
    SelectObject(screen, before);
    ReleaseDC(nullptr, screen);
    return size.cx;
}

}  // namespace tellwick::standin
