#include "compose/MessageText.h"

#include <algorithm>

#include "air/AirCount.h"
#include "compose/FormSmsSendView.h"
#include "compose/QueueText.h"
#include "platform/Keys.h"
#include "platform/Locale.h"
#include "settings/Debug.h"
#include "settings/LanguageTexts.h"

namespace tellwick {

namespace {

constexpr char16_t Delete = 127;
constexpr std::int32_t SingleLimit = 160;
constexpr std::int32_t PartSize = 153;
constexpr std::int32_t ShownPartSize = 154;  // deliberate: "The limit that is shown"
constexpr std::int32_t MostParts = 5;
constexpr TextView WordSeparators = u" .,;:+-\r\n";
constexpr TextView Digits = u"0123456789ABCDEF";

bool IsSeparator(char16_t unit) {
    return WordSeparators.find(unit) != TextView::npos;
}

std::int32_t WordLeft(TextView text, std::int32_t position) {
    auto at = std::size_t(position);
    while (at > 0 && IsSeparator(text[at - 1])) --at;
    while (at > 0 && !IsSeparator(text[at - 1])) --at;
    return std::int32_t(at);
}

std::int32_t WordRight(TextView text, std::int32_t position) {
    auto at = std::size_t(position);
    while (at < text.size() && !IsSeparator(text[at])) ++at;
    while (at < text.size() && IsSeparator(text[at])) ++at;
    return std::int32_t(at);
}

// -1 for a character that is no hexadecimal digit.
std::int32_t DigitValue(char16_t character) {
    if (character >= u'0' && character <= u'9') return character - u'0';
    const char16_t lower = LowerCase(character);
    return lower >= u'a' && lower <= u'f' ? lower - u'a' + 10 : -1;
}

// What a text above five parts is cut to. Deliberate: "One character below five parts".
std::int32_t LongestText(std::int32_t partLimit) {
    return MostParts * partLimit - 1;
}

}  // namespace

MessageText::MessageText(const Services& services, FormSmsSendView& view, Locale& locale)
    : Services(services), view(view), locale(locale) {}

Text MessageText::FormText(TextView key) {
    return language.TextOrBuiltIn(FormSmsSendTexts, key);
}

void MessageText::Reset() {
    extraLength = 0;
    hexFlag = false;
}

void MessageText::Message_Change() {
    Procedure procedure{debug, u"Message_Change"};
    TextBox& box = view.Message();
    Text text = box.GetText();
    std::int32_t partSize = SingleLimit;

    // Writing the box back raises a change of its own, which does the rest.
    if (text.find(Delete) != Text::npos) {
        const std::int32_t caret = box.SelectionStart();
        std::erase(text, Delete);
        box.SetText(text);
        box.Select(std::max(caret - 1, 0), 0);
        return;
    }
    const auto boxLength = std::int32_t(text.size());
    if (hexFlag) {
        text = ConvertHexTextToText(text);
        std::erase(text, LineFeed);
    }
    const auto ownLength = std::int32_t(text.size());
    if (ownLength > SingleLimit) partSize = PartSize;
    const std::int32_t counted = ownLength + extraLength;
    // Deliberate: "A text that is looked up and not shown".
    if (counted > SingleLimit && previousLength <= SingleLimit) {
        language.GetLanguageString(FormSmsSendTexts, u"MsgBox12");
    }
    const std::int32_t limit = PartLimit();
    if (counted > limit) view.CheckLong().SetEnabled(true);
    if (counted > MostParts * limit) {
        const std::int32_t longest = LongestText(limit) * (hexFlag ? 2 : 1);
        if (boxLength > longest) {
            const std::int32_t caret = box.SelectionStart();
            box.SetText(TextView(box.GetText()).substr(0, std::size_t(longest)));
            box.Select(caret, 0);
            return;
        }
    }
    previousLength = counted;

    view.CheckFlash().SetEnabled(counted <= SingleLimit);
    if (counted > SingleLimit) view.CheckFlash().SetChecked(false);

    const std::int32_t parts = (counted - 1) / partSize + 1;
    const std::int32_t shownLimit = parts == 1 ? SingleLimit : parts * ShownPartSize - 1;
    Text status =
        ReplaceAll(FormText(u"7"), u"%n", NumberText(counted) + u"/" + NumberText(shownLimit));
    if (counted > partSize) status += u" ," + NumberText(parts) + u" SMS";
    view.LabelStatus().SetCaption(status);
}

std::int32_t MessageText::PartLimit() const {
    return view.CheckLong().Checked() ? PartSize : SingleLimit;
}

bool MessageText::Message_KeyPress(char16_t character) const {
    return hexFlag && DigitValue(character) < 0;
}

bool MessageText::Message_KeyDown(std::int32_t keyCode, std::int32_t shift) {
    if (shift != key::Control ||
        (keyCode != key::Left && keyCode != key::Right && keyCode != key::Back)) {
        return false;
    }
    TextBox& box = view.Message();
    const Text text = box.GetText();
    const std::int32_t caret =
        std::min(box.SelectionStart() + (keyCode == key::Left ? 0 : box.SelectionLength()),
                 std::int32_t(text.size()));
    if (keyCode == key::Left) {
        box.Select(WordLeft(text, caret), 0);
    } else if (keyCode == key::Right) {
        box.Select(WordRight(text, caret), 0);
    } else if (!hexFlag) {
        // Deletes the selection, or the word before the caret.
        if (box.SelectionLength() == 0) {
            const std::int32_t start = WordLeft(text, caret);
            box.Select(start, caret - start);
        }
        box.ReplaceSelection(u"");
    }
    return true;
}

void MessageText::ButtonHex_Click() {
    Procedure procedure{debug, u"ButtonHex_Click"};
    const Text text = view.Message().GetText();
    hexFlag = !hexFlag;
    view.Message().SetText(hexFlag ? ToDigits(text) : FromDigits(text));
    SetHexButton();
    view.Message().SetFocus();
}

void MessageText::ButtonUcs2_Click() {
    Procedure procedure{debug, u"ButtonUcs2_Click"};
    unicodeFlag = !unicodeFlag;
    SetHexButton();
}

void MessageText::SetHexButton() {
    Procedure procedure{debug, u"SetHexButton"};
    view.ButtonBar1(BarButton::Hex).SetChecked(hexFlag);
    view.ButtonHex().SetCaption(FormText(hexFlag ? u"ButtonHex.On" : u"ButtonHex"));
    view.ButtonUcs2().SetCaption(FormText(unicodeFlag ? u"ButtonUcs2.On" : u"ButtonUcs2"));
}

void MessageText::ShowText() {
    if (!hexFlag) return;
    const Text text = FromDigits(view.Message().GetText());
    hexFlag = false;
    view.Message().SetText(text);
}

void MessageText::Insert(TextView text) {
    view.Message().ReplaceSelection(hexFlag ? ToDigits(text) : Text(text));
}

bool MessageText::Fits(TextView text) const {
    return std::int32_t(text.size()) <= LongestText(PartSize) &&
           CountOnAir(ThroughQueue(text, locale).arrives).parts.size() <= MostParts;
}

void MessageText::Replace(TextView text) {
    if (hexFlag) ButtonHex_Click();
    // Fits at once: a box that is written back forgets what can be undone.
    Text fitting(text);
    std::erase(fitting, Delete);
    const std::int32_t limit = PartLimit();
    if (std::int32_t(fitting.size()) > MostParts * limit) {
        fitting.resize(std::size_t(LongestText(limit)));
    }
    PutWhole(fitting, 0);
    replaced = fitting;
}

void MessageText::ReplaceAgain(TextView text) {
    TextBox& box = view.Message();
    if (hexFlag || replaced.empty() || text == replaced || box.GetText() != replaced) return;
    box.Undo();
    Replace(text);
}

// In a way that the user can undo.
void MessageText::PutWhole(TextView text, std::int32_t caret) {
    TextBox& box = view.Message();
    box.Select(0, std::int32_t(box.GetText().size()));
    box.ReplaceSelection(text);
    box.Select(caret, 0);
}

Text MessageText::GetText() const {
    return view.Message().GetText();
}

Text MessageText::MeantText() const {
    return hexFlag ? FromDigits(GetText()) : GetText();
}

bool MessageText::Exchange(TextView text) {
    if (hexFlag || std::int32_t(text.size()) > MostParts * PartLimit()) return false;
    TextBox& box = view.Message();
    const std::int32_t caret = box.SelectionStart();
    if (!exchanged.empty() && box.GetText() == exchanged) box.Undo();
    PutWhole(text, caret);
    exchanged = text;
    return true;
}

void MessageText::SetFocus() {
    view.Message().SetFocus();
}

Text MessageText::ToDigits(TextView text) {
    if (!unicodeFlag) return ConvertTextToHexText(text);
    Text bytes;
    for (const char16_t unit : text) {
        bytes += CharacterOf(unit & 0xFF);
        bytes += CharacterOf(unit >> 8);
    }
    return ConvertTextToHexText(bytes);
}

Text MessageText::FromDigits(TextView digits) const {
    const Text bytes = ConvertHexTextToText(digits);
    if (!unicodeFlag) return bytes;
    Text text;
    for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
        text += char16_t(CodeOf(bytes[at]) | CodeOf(bytes[at + 1]) << 8);
    }
    return text;
}

Text MessageText::ConvertTextToHexText(TextView text) {
    Procedure procedure{debug, u"ConvertTextToHexText"};
    Text digits;
    digits.reserve(2 * text.size());
    std::int32_t byte = 0;
    for (const char16_t character : text) {
        const std::int32_t code = CodeOf(character);
        if (code <= 0xFF) {
            byte = code;
        } else {
            debug.Errors().Note(error::Overflow, u"Overflow");
        }
        digits += Digits[std::size_t(byte >> 4)];
        digits += Digits[std::size_t(byte & 15)];
    }
    return digits;
}

Text MessageText::ConvertHexTextToText(TextView digits) const {
    Text text;
    text.reserve(digits.size() / 2);
    for (std::size_t at = 0; at + 1 < digits.size(); at += 2) {
        const std::int32_t high = DigitValue(digits[at]);
        const std::int32_t low = DigitValue(digits[at + 1]);
        if (high >= 0 && low >= 0) text += CharacterOf(high * 16 + low);
    }
    return text;
}

std::int32_t MessageText::CodeOf(char16_t character) const {
    if (wideCharacters) return character;
    const std::string bytes = locale.ToAnsi(TextView(&character, 1));
    return bytes.empty() ? 0 : std::int32_t(static_cast<unsigned char>(bytes[0]));
}

char16_t MessageText::CharacterOf(std::int32_t code) const {
    if (wideCharacters) return char16_t(code);
    const char byte = char(code);
    const Text text = locale.FromAnsi({&byte, 1});
    return text.empty() ? u'\0' : text[0];
}

}  // namespace tellwick
