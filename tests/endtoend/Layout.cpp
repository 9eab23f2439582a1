#include "endtoend/Layout.h"

#include <doctest.h>

#include <algorithm>
#include <cctype>
#include <set>
#include <sstream>

#include "endtoend/Machine.h"
#include "endtoend/Printing.h"

namespace tellwick::endtoend {

namespace {

bool Surrounds(const RECT& outer, const RECT& inner) {
    return outer.left < inner.left && outer.top < inner.top && outer.right > inner.right &&
           outer.bottom > inner.bottom;
}

// What programs started from now on take for the system's resolution.
class Resolution {
public:
    explicit Resolution(DWORD dotsPerInch) { Set(dotsPerInch); }
    Resolution(const Resolution&) = delete;
    Resolution& operator=(const Resolution&) = delete;
    ~Resolution() { Set(96); }

private:
    static void Set(DWORD dotsPerInch) {
        WriteNumber(L"Control Panel\\Desktop", L"LogPixels", dotsPerInch);
    }
};

}  // namespace

ControlOnForm Described(const std::string& description) {
    ControlOnForm control;
    std::istringstream words(description);
    words >> control.className >> control.place.left >> control.place.top >> control.place.right >>
        control.place.bottom >> control.needed;
    std::getline(words >> std::ws, control.caption);
    return control;
}

void CheckLayout(const std::vector<ControlOnForm>& controls, std::size_t least) {
    REQUIRE(controls.size() >= least);
    std::set<char> mnemonics;
    for (auto one = controls.begin(); one != controls.end(); ++one) {
        CAPTURE(one->caption);
        CAPTURE(one->className);
        CHECK(one->place.right - one->place.left >= one->needed);
        CHECK(one->place.bottom > one->place.top);
        for (auto other = one + 1; other != controls.end(); ++other) {
            CAPTURE(other->caption);
            CAPTURE(other->className);
            RECT shared;
            if (!IntersectRect(&shared, &one->place, &other->place)) continue;
            CHECK((Surrounds(one->place, other->place) || Surrounds(other->place, one->place)));
        }
        const std::size_t mark = one->caption.find('&');
        if (mark == std::string::npos) continue;
        CHECK(mnemonics.insert(char(std::tolower(one->caption[mark + 1]))).second);
    }
}

void CheckReading(HWND window) {
    RECT before{};
    for (HWND control = GetWindow(window, GW_CHILD); control;
         control = GetWindow(control, GW_HWNDNEXT)) {
        const std::wstring className = ClassOf(control);
        CAPTURE(className);
        CAPTURE(TextOf(control));
        const LONG style = GetWindowLongW(control, GWL_STYLE);
        if (!IsWindowVisible(control)) {
            if (TextOf(control).find(L'&') == std::wstring::npos) continue;
            CHECK((className == L"Static" ? (style & SS_NOPREFIX) : !IsWindowEnabled(control)));
        }
        // The options of a group stand together before the field of one of them.
        const bool option = className == L"Button" && (style & BS_TYPEMASK) == BS_AUTORADIOBUTTON;
        if (!(style & WS_TABSTOP) || !IsWindowVisible(control) || option) continue;
        RECT place;
        GetWindowRect(control, &place);
        CHECK((place.top >= before.bottom || place.left >= before.right));
        before = place;
        if (className == L"Button") continue;
        const HWND label = GetWindow(control, GW_HWNDPREV);
        CHECK(ClassOf(label) == L"Static");
        CHECK_FALSE(TextOf(label).empty());
    }
}

void InEveryLook(const std::function<void(const std::string& language, int resolution)>& check) {
    for (const int resolution : {96, 120, 144, 192}) {
        CAPTURE(resolution);
        const Resolution system{DWORD(resolution)};
        for (const std::string language : {"Deutsch", "English", "Francais", "Espanol",
                                           "Portugues-BR", "Cesky", "Nederlands", "Polski"}) {
            CAPTURE(language);
            check(language, resolution);
        }
    }
}

}  // namespace tellwick::endtoend
