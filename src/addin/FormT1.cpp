#include "addin/FormT1.h"

#include <utility>

#include "settings/Debug.h"

namespace tellwick {

namespace {
constexpr std::uint32_t Interval = 200;  // milliseconds
}

FormT1::FormT1(Debug& debug, Forms& forms, Timers& timers)
    : debug(debug), forms(forms), timers(timers) {}

FormT1::~FormT1() {
    forms.Remove(*this);
}

void FormT1::StartT(std::shared_ptr<MenuRequester> newRequester) {
    forms.Add(*this);
    requester = std::move(newRequester);
    if (!timer1) timer1 = timers.Create();
    timer1->Start(Interval, [this] { Timer1_Timer(); });
}

void FormT1::Timer1_Timer() {
    timer1->Stop();
    // Held here: the call may bring a new request, or unload this form.
    const std::shared_ptr<MenuRequester> current = std::exchange(requester, nullptr);
    if (current) debug.Guarded([&] { current->SetMenus(); });
    if (!requester) Unload();
}

void FormT1::Unload() {
    timer1.reset();
    requester.reset();
    forms.Remove(*this);
}

}  // namespace tellwick
