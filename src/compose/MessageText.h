// The text of the message: counted, limited, and shown as text or as hexadecimal digits.
#pragma once

#include <cstdint>

#include "platform/Text.h"
#include "settings/Services.h"

namespace tellwick {

class FormSmsSendView;
class Locale;

class MessageText : private Services {
public:
    MessageText(const Services& services, FormSmsSendView& view, Locale& locale);

    // Module character mode: codes are UTF-16 units; else bytes of the ANSI code page.
    bool wideCharacters = true;

    // Starts anew: the box shows text, nothing is counted beside it.
    void Reset();

    // The text changed: counts it, cuts it to five parts, and tells the user.
    void Message_Change();

    // True when the key is not to reach the box: in the hexadecimal view all but digits.
    bool Message_KeyPress(char16_t character) const;

    // The word-wise keys; true when the key was used up.
    bool Message_KeyDown(std::int32_t keyCode, std::int32_t shift);

    void ButtonHex_Click();
    void ButtonUcs2_Click();
    void SetHexButton();

    // Turns digits in the box back into text; nothing while the box shows text.
    void ShowText();

    // Puts a text in place of the selection, as digits while the box shows digits.
    void Insert(TextView text);

    // Whether a text stays whole in the box, and makes five SMS at most on the air.
    bool Fits(TextView text) const;

    // Puts a text in place of the whole, shown as text, with the caret before it. What stood there
    // comes back when the user undoes it.
    void Replace(TextView text);
    // The same in place of what the last one put, as if that had not been. Nothing happens when the
    // user has changed it, or it is the same.
    void ReplaceAgain(TextView text);

    Text GetText() const;
    // The same as text, where the box shows the digits of one.
    Text MeantText() const;
    bool ShowsDigits() const { return hexFlag; }
    // Puts a text in place of the whole, the caret staying about where it is. One undo of the
    // user's takes back this and the exchanges right before it. False, and nothing happens, when
    // the text would be cut or the box shows digits.
    bool Exchange(TextView text);

    void SetFocus();

    // Two upper-case digits for each character. A character whose code is above 255 notes an
    // overflow and gets the digits of the one before it.
    Text ConvertTextToHexText(TextView text);

    // The characters that pairs of digits stand for; an odd last digit and pairs that are no digits
    // are left out.
    Text ConvertHexTextToText(TextView digits) const;

private:
    std::int32_t PartLimit() const;
    void PutWhole(TextView text, std::int32_t caret);
    Text ToDigits(TextView text);
    Text FromDigits(TextView digits) const;
    std::int32_t CodeOf(char16_t character) const;
    char16_t CharacterOf(std::int32_t code) const;
    Text FormText(TextView key);

    bool hexFlag = false;
    bool unicodeFlag = false;
    std::int32_t extraLength = 0;     // characters counted beside the box's own text
    std::int32_t previousLength = 0;  // counted at the end of the change before
    Text exchanged;                   // what the last exchange left
    Text replaced;                    // the same of Replace

    FormSmsSendView& view;
    Locale& locale;
};

}  // namespace tellwick
