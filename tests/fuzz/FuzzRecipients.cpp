// Phone numbers, the number list, the known contacts and the text templates.
#include <initializer_list>
#include <sstream>

#include "fuzz/Targets.h"
#include "platform/TestProgram.h"
#include "recipients/NumberCache.h"

namespace tellwick::test {

namespace {

struct OpenForm : TestProgram {
    explicit OpenForm(std::string_view settingsFile) {
        platform.fileSystem.Write(program.inifilesLite.CurrentFile(), settingsFile,
                                  WriteMode::Replace);
        program.inifilesLite.GetIniSetting(u"", u"", {}, false, 1);  // looks for the change
        program.formSmsSend.Open({});
    }
    void OpenAgain() {
        program.formSmsSend.Unload();
        program.formSmsSend.Open({});
    }
    // The values of keys numbered on from `first`, up to the first empty one.
    std::vector<Text> Settings(TextView section, TextView key, int first, std::size_t most) {
        std::vector<Text> values;
        while (values.size() < most) {
            Text value = Setting(section, Text(key) + NumberText(first++));
            if (value.empty()) break;
            values.push_back(std::move(value));
        }
        return values;
    }
    std::vector<Text> Numbers() {
        std::vector<Text> items = view.TextTo().items;
        if (!items.empty()) items.pop_back();  // the item that clears the list
        return items;
    }
};

void SortPlainly(std::vector<Text>& texts) {
    std::stable_sort(texts.begin(), texts.end(), [](const Text& left, const Text& right) {
        return LowerCase(left) < LowerCase(right);
    });
}

}  // namespace

// Fields: a number to add; then the settings file.
void FuzzNumbers(Input input) {
    constexpr std::size_t most = 49;
    const Text number = input.TextField();
    OpenForm form(input.Rest());
    std::vector<Text> numbers = form.Settings(u"SMSNumberList", u"Number", 1, most);
    Require(form.Numbers() == numbers, "the list is read up to its first gap");
    if (number.empty() || !IsPlain(number) || !IsWellFormed(input.RestText())) return;
    // Keys behind the gap are found again when the list has grown up to them.
    for (int position = int(numbers.size()) + 2; position <= 51; ++position) {
        if (!form.Settings(u"SMSNumberList", u"Number", position, 1).empty()) return;
    }
    form.program.recipientField.AddNumberToList(number);
    if (std::find(numbers.begin(), numbers.end(), number) == numbers.end()) {
        numbers.insert(numbers.begin(), number);
        numbers.resize(std::min(numbers.size(), most));
    }
    form.OpenAgain();
    Require(form.Numbers() == numbers, "a number is kept at the head, or where it was");
}

// Fields: a template to add; then the settings file.
void FuzzTemplates(Input input) {
    constexpr std::size_t most = 100;
    const Text text = input.TextField();
    OpenForm form(input.Rest());
    auto& box = form.view.ComboBoxTextbausteine();
    form.program.textTemplates.Fill();
    std::vector<Text> templates = form.Settings(u"Texte", u"Text", 0, most);
    SortPlainly(templates);
    Require(box.items == templates, "the templates are read up to the first gap, and sorted");
    const Text saved = ReplaceAll(ReplaceAll(text, u"\n", u"\\10"), u"\r", u"\\13");
    const Text file = input.RestText();
    if (text.empty() || templates.size() >= most || !IsPlain(saved) || !IsWellFormed(file) ||
        !HasNothingTwice(file)) {
        return;
    }
    box.SetText(text);
    form.program.textTemplates.ButtonAdd_Click();
    if (std::find(templates.begin(), templates.end(), text) == templates.end()) {
        Require(box.items.at(std::size_t(box.selected)) == text, "what was added is chosen");
        templates.push_back(saved);
        SortPlainly(templates);
    }
    form.OpenAgain();
    form.program.textTemplates.Fill();
    Require(box.items == templates, "every template is kept");

    const Text meant = ReplaceAll(ReplaceAll(saved, u"\\13", u"\r"), u"\\10", u"\n");
    if (Contains(text, u"\\1") || Contains(text, u"\x7F") || text.size() > 160) return;
    form.view.Message().SetText({});
    box.SetText(saved);
    form.program.textTemplates.ButtonInsert_Click();
    Require(form.view.Message().GetText() == meant && meant == text,
            "line breaks come back when a template is inserted");
}

// Fields: the counts in the head of numbers2.txt, and all of numbers.txt; then the lines behind the
// head, under hashes that fit.
void FuzzKnown(Input input) {
    const Text folder = u"C:\\Data\\";
    MemoryPlatform platform;
    auto& files = platform.fileSystem.files;
    auto& numbers = files[folder + u"numbers.txt"].contents;
    auto& details = files[folder + u"numbers2.txt"].contents;
    const std::string_view counts = input.Field();
    numbers = input.Field();
    const auto hash = [](std::initializer_list<std::string_view> pieces) {
        RunningHash running;
        for (const std::string_view piece : pieces) running.Add(piece);
        std::ostringstream digits;
        digits << std::hex << running.Value();
        return digits.str();
    };
    const std::string rest = hash({numbers}).append("\t").append(counts);
    details = "Tellwick numbers 3\t" + hash({input.Rest(), rest}) + "\t" + rest + "\r\n" +
              std::string(input.Rest());

    std::string written;
    for (int round = 1; round <= 2; ++round) {
        NumberCacheReader reader(platform.fileSystem, platform.locale, folder);
        while (reader.DoSome()) {
        }
        const std::optional<AddressBook> book = reader.Take();
        Require(book || round == 1, "what was written can be read");
        if (!book) return;
        std::size_t lines = 1;
        for (std::size_t end = 0; (end = details.find("\r\n", end) + 2) != details.size();) {
            Require(end >= 2, "nothing is left behind the last line");
            ++lines;
        }
        Require(lines == 1 + book->folders.size() + book->items.size() + book->list.Size(),
                "every line is read");
        for (const KeptItem& item : book->items)
            Require(item.folder < book->folders.size(), "an item lies in a folder");
        for (std::size_t row = 0; row < book->list.Rows(); ++row)
            Require(book->list.Row(row).item < book->items.size(), "a number is an item's");
        NumberCacheWriter writer(platform.fileSystem, platform.locale, folder, *book);
        while (writer.DoSome()) {
        }
        Require(round == 1 || written == numbers + details, "what was read is written as it was");
        written = numbers + details;
    }
}

// Fields: options (k: keep empty ones, t: translate, q: quoted), the separator; then the text.
void FuzzList(Input input) {
    constexpr std::size_t most = 201;
    const std::string_view options = input.Field();
    const auto option = [options](char which) { return options.find(which) != options.npos; };
    const Text separator = input.TextField();
    TestProgram test;
    std::vector<Text> list;
    const Text text = input.RestText();
    const std::int32_t bound =
        test.program.prefixes.GetList(list, text, separator, option('k'), option('t'), option('q'));
    Require(!list.empty() && bound == std::int32_t(list.size()) - 1, "the bound is the list's");
    Require(list.size() <= most, "a list has at most 201 elements");
    if (separator.empty() && !option('q')) Require(list.size() == 1, "nothing separates");
    if (option('k') || list.size() + 1 >= most || Contains(text, u"+CGMI")) return;
    // Nothing is lost but the separators, and an empty element at the end.
    Text joined;
    for (const Text& element : list) joined += element + separator;
    Require(StartsWith(joined, text) || StartsWith(text, joined), "the elements make up the text");
    Require(joined.size() + separator.size() >= text.size(), "no element is lost");
}

// Fields: the prefixes in the settings; then an entry of the address list.
void FuzzPhone(Input input) {
    TestProgram test;
    const Text prefixes = input.TextField();
    const Text entry = input.RestText();
    const Text number = test.program.prefixes.ConvertPhoneNumber(entry);
    const auto onlyDiallable = [](TextView converted) {
        return converted.find_first_not_of(u"+#*0123456789pP") == TextView::npos;
    };
    Require(onlyDiallable(number), "only what a phone can dial is left");
    Require(number.size() <= entry.size(), "nothing is added");
    Require(!StartsWith(number, u"00"), "an international prefix is a plus");
    // Of three and more "+" in a row one pass leaves two and more, which the next one halves.
    Require(test.program.prefixes.ConvertPhoneNumber(number) == ReplaceAll(number, u"++", u"+"),
            "a number that was converted stays as it is");

    if (!IsPlain(prefixes)) return;
    test.SetSetting(u"Prefixes", u"Remove0InPrefixes", prefixes);
    const Text national = test.program.prefixes.GetNumber(entry);
    Require(onlyDiallable(national), "a national number can be dialled");
    Require(test.program.prefixes.GetNumber(entry) == national, "the tables do not wear out");
    if (!test.program.prefixes.TakeRewritten()) return;
    Require(test.program.prefixes.NamesNone() || Contains(u" " + prefixes + u" ", u" + "),
            "numbers are rewritten for want of prefixes only where none is named");
    Require(StartsWith(national, u"0"), "a number that was rewritten is a national one");
}

}  // namespace tellwick::test
