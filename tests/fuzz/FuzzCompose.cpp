// The message as hexadecimal digits and as it goes on air, and the queue.
#include "air/AirCount.h"
#include "fuzz/Targets.h"
#include "platform/TestProgram.h"

namespace tellwick::test {

namespace {

// Two bytes for each unit, the low one first.
Text UnitsOf(std::string_view bytes) {
    Text text;
    for (; bytes.size() >= 2; bytes.remove_prefix(2)) {
        text += char16_t(std::uint8_t(bytes[0]) | std::uint8_t(bytes[1]) << 8);
    }
    return text;
}

}  // namespace

// Fields: options (u: two bytes a character, w: codes of the code page); then the text.
void FuzzHex(Input input) {
    const std::string_view options = input.Field();
    const bool unicode = options.find('u') != options.npos;
    const bool codePage = options.find('w') != options.npos;
    Text text = UnitsOf(input.Rest());
    TestProgram test;
    MessageText& message = test.program.messageText;
    message.wideCharacters = !codePage;
    if (codePage) text = test.platform.locale.FromAnsi(test.platform.locale.ToAnsi(text));

    const Text digits = message.ConvertTextToHexText(text);
    Require(digits.size() == 2 * text.size(), "each character has two digits");
    Require(digits.find_first_not_of(u"0123456789ABCDEF") == Text::npos, "digits are capital");
    const bool inRange = codePage || std::all_of(text.begin(), text.end(),
                                                 [](char16_t unit) { return unit <= 0xFF; });
    if (inRange) Require(message.ConvertHexTextToText(digits) == text, "digits give the text back");
    const Text read = message.ConvertHexTextToText(text);  // any text may be pasted as digits
    Require(read.size() <= text.size() / 2, "two digits make one character");
    Require(message.ConvertHexTextToText(message.ConvertTextToHexText(read)) == read,
            "what digits stand for has digits");

    // Through the form: the view switched on and off, as far as five parts hold the text.
    test.program.formSmsSend.Open({});
    std::erase(text, char16_t(127));
    test.view.Message().SetText(text);
    const Text shown = test.view.Message().GetText();
    Require(shown == text.substr(0, 799), "a text is cut to five parts");
    if (unicode) message.ButtonUcs2_Click();
    message.ButtonHex_Click();
    const Text view = test.view.Message().GetText();
    Require(std::all_of(view.begin(), view.end(),
                        [&](char16_t digit) { return !message.Message_KeyPress(digit); }),
            "the view shows digits");
    message.ButtonHex_Click();
    const bool whole = unicode ? shown.size() < 400 && !codePage : inRange;
    if (whole) Require(test.view.Message().GetText() == shown, "the view changes nothing");
}

// The text, cut into SMS.
void FuzzAir(Input input) {
    const Text text = UnitsOf(input.Rest());
    const AirCount count = CountOnAir(text);
    const bool unicode = count.encoding == AirEncoding::Ucs2;
    const std::int32_t single = unicode ? 70 : 160;
    const std::int32_t limit = count.parts.size() == 1 ? single : unicode ? 67 : 153;
    Require(unicode != count.forcing.empty(), "some character forces UCS-2");
    Text joined;
    std::int32_t units = 0;
    for (const AirPart& part : count.parts) {
        Require(part.start == joined.size(), "a part begins where the one before ends");
        joined += part.In(text);
        std::int32_t own = 0;
        for (const char16_t unit : part.In(text)) own += unicode ? 1 : SeptetsOf(unit);
        Require(own == part.units && own <= limit, "a part has its units, and not too many");
        // An SMS is left with one unit free at most, where two belong together.
        const bool last = joined.size() == text.size();
        Require(last || own >= limit - 1, "no part is cut before it is full");
        Require(last || part.start + part.length == 0 ||
                    CharacterLength(text, part.start + part.length - 1) == 1,
                "no pair is split");
        units += own;
    }
    Require(joined == text && units == count.units, "the parts are the text");
    Require(count.free == limit - count.parts.back().units, "what is free is in the last part");
    Require((count.parts.size() == 1) == (units <= single), "one SMS where it fits one");
    for (const std::size_t at : count.forcing) Require(SeptetsOf(text[at]) == 0, "forces UCS-2");
}

// Fields: the counter, the recipient; then the message.
void FuzzQueue(Input input) {
    constexpr std::int64_t entries = 0x100000;
    TestProgram test;
    const Text key = Text(RootKey) + u"\\SMSQueue";
    const Text counter = input.TextField();
    const Text recipient = input.TextField();
    const Text message = input.RestText();
    test.SetRegistry(key, u"cOut", counter);
    std::int64_t before = LeadingNumber(counter);
    if (before != std::int32_t(before)) before = 0;
    for (int entry = 0; entry < 3; ++entry) {
        test.platform.registry.writes.clear();
        test.program.smsQueue.AddEntry(recipient, message);
        const std::int64_t next = before + 1 < entries ? before + 1 : before + 1 - entries;
        const Text number = NumberText(next);
        const Text path = test.Registry(key, number);
        Require(
            test.platform.registry.writes ==
                std::vector<Text>{key + u"\\" + number + u"=" + path, key + u"\\cOut=" + number},
            "the entry comes before the counter, under the number after the last");
        const auto file = test.platform.fileSystem.files.find(path);
        Require(
            file != test.platform.fileSystem.files.end() &&
                test.platform.locale.FromAnsi(file->second.contents) == recipient + u"\t" + message,
            "the file holds recipient and message");
        before = next;
    }
    if (LeadingNumber(counter) >= 0 && LeadingNumber(counter) < entries) {
        Require(before >= 0 && before < entries, "numbers stay in their range");
    }
    Require(test.platform.dialogs.shown.empty(), "nothing went wrong");
}

// Fields: what every field is filled with; then the text.
void FuzzFields(Input input) {
    const Text value = input.TextField();
    const Text text = input.RestText();
    TestProgram test;
    const std::vector<FieldPlace> places = test.program.textFields.Find(text);
    const auto filledWith = [&](std::optional<TextView> known) {
        return TextFields::FillWith(text, places, [&](Field) { return known; });
    };
    const FilledText filled = filledWith(value);
    Text expected;
    std::size_t next = 0;
    for (const FieldPlace& place : places) {
        Require(place.start >= next && text[place.start] == u'{' &&
                    text.at(place.start + place.length - 1) == u'}',
                "a field is in braces, one behind the other");
        expected += text.substr(next, place.start - next) + value;
        next = place.start + place.length;
    }
    expected += text.substr(next);
    Require(filled.missing.empty(), "what is known is not missing");
    Require(value.empty() ||
                (filled.text.marks.size() == places.size() && filled.text.text == expected),
            "each field is filled, and nothing else changes");
    const FilledText without = filledWith({});
    Require(without.missing.empty() == places.empty(), "what is not known is missing");
    Require(without.text.marks.empty() && without.text.text.size() <= text.size(), "and left out");
    Require(without.text.text == filledWith(TextView()).text.text, "as is what there is none of");
}

}  // namespace tellwick::test
