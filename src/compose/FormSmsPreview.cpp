#include "compose/FormSmsPreview.h"

#include <algorithm>

#include "compose/AirCountLine.h"
#include "compose/CharacterName.h"
#include "compose/MessageText.h"
#include "compose/QueueText.h"
#include "platform/Locale.h"
#include "settings/Debug.h"
#include "settings/LanguageTexts.h"

namespace tellwick {

namespace {

constexpr TextView FormName = u"FormSmsPreview";

bool InGsm(TextView character) {
    return character.size() == 1 && SeptetsOf(character[0]) > 0;
}

std::int64_t PartsOf(TextView text) {
    return std::int64_t(CountOnAir(text).parts.size());
}

// How many SMS a text makes in which every character that forces UCS-2 has its look-alike, or
// something as short, but for `kept`.
std::int64_t PartsWithout(TextView text, TextView kept) {
    const Usable usable = [kept](TextView character) {
        return character == kept || InGsm(character);
    };
    const Text replaced = WithLookAlikes(text, usable);
    Text cheap;
    std::size_t length = 0;
    for (std::size_t at = 0; at < replaced.size(); at += length) {
        length = CharacterLength(replaced, at);
        const TextView character = TextView(replaced).substr(at, length);
        cheap += usable(character) ? character : u"?";
    }
    return PartsOf(cheap);
}

}  // namespace

FormSmsPreview::FormSmsPreview(const Services& services, FormSmsPreviewView& view, Forms& forms,
                               MessageText& messageText, const AirCountLine& airCountLine,
                               const PersonalTexts& personalTexts, const TextFields& textFields,
                               const AppointmentReminders& reminders, Locale& locale)
    : Services(services),
      people(services, view, personalTexts, textFields, reminders, locale),
      arrivesAsGsm([&locale](TextView character) {
          return InGsm(character) && SurvivesQueue(character, locale);
      }),
      view(view),
      forms(forms),
      messageText(messageText),
      airCountLine(airCountLine),
      locale(locale) {
    view.SetEvents(*this);
}

FormSmsPreview::~FormSmsPreview() {
    forms.Remove(*this);
}

Text FormSmsPreview::FormText(TextView key) const {
    return language.TextOrBuiltIn(FormName, key);
}

void FormSmsPreview::Show() {
    if (!view.Loaded()) {
        if (!view.Load()) return;
        forms.Add(*this);
        language.GetLanguageStringsForForm(FormName, view);
    }
    Refresh();
    view.Show();
}

void FormSmsPreview::Unload() {
    if (!view.Loaded()) return;
    view.Unload();
    forms.Remove(*this);
    people.Forget();
}

void FormSmsPreview::Refresh() {
    if (!view.Loaded()) return;
    people.Refresh();
    view.LabelCount().SetCaption(airCountLine.Describe());
    ShowText();
}

void FormSmsPreview::ShowText() {
    const Text text = messageText.GetText();
    const PersonalText* const personal = people.Shown();
    const QueueText through = ThroughQueue(personal ? personal->filled.text.text : text, locale);
    const AirCount count = CountOnAir(through.arrives);
    ShowParts(through, count);
    FindRows(text, through, count);
    ShowRows();
    if (!personal) return;
    Enable(view.ButtonBack(), people.Has(-1));
    Enable(view.ButtonForward(), people.Has(1));
}

// Of each unit that arrives.
std::vector<StyledText::Style> FormSmsPreview::StylesOf(const QueueText& through,
                                                        const AirCount& count) const {
    using Style = StyledText::Style;
    const TextView text = through.arrives;
    std::vector<Style> styles(text.size(), Style::Plain);
    const auto set = [&](std::size_t start, std::size_t length, Style style) {
        std::fill_n(styles.begin() + std::ptrdiff_t(start), length, style);
    };
    if (const PersonalText* const personal = people.Shown()) {
        const MarkedText& filled = personal->filled.text;
        const auto arrives = [&](std::size_t end) {
            return ThroughQueue(TextView(filled.text).substr(0, end), locale).arrives.size();
        };
        for (const auto& [start, length] : filled.marks) {
            const std::size_t from = arrives(start);
            set(from, arrives(start + length) - from, Style::Filled);
        }
    }
    for (const std::size_t at : count.forcing) set(at, CharacterLength(text, at), Style::Marked);
    for (const LostCharacter& lost : through.lost)
        set(lost.position, lost.arrives.size(), Style::Marked);
    return styles;
}

void FormSmsPreview::ShowParts(const QueueText& through, const AirCount& count) {
    using Style = StyledText::Style;
    const TextView text = through.arrives;
    const std::vector<Style> styles = StylesOf(through, count);
    std::vector<StyledText::Piece> pieces;
    const std::int32_t limit = count.parts.back().units + count.free;
    std::int64_t number = 0;
    for (const AirPart& part : count.parts) {
        Text heading = ReplaceAll(FormText(u"Part"), u"%n", NumberText(++number));
        heading = ReplaceAll(heading, u"%m", NumberText(std::int64_t(count.parts.size())));
        heading = ReplaceAll(heading, u"%u", NumberText(part.units) + u"/" + NumberText(limit));
        pieces.push_back({Style::Heading, (number == 1 ? u"" : u"\r\n\r\n") + heading + u"\r\n"});
        const std::size_t end = part.start + part.length;
        for (std::size_t from = part.start, to = from; from < end; from = to) {
            while (to < end && styles[to] == styles[from]) ++to;
            pieces.push_back({styles[from], Text(text.substr(from, to - from))});
        }
        if (CutsCharacter(text, end)) {
            pieces.push_back({Style::Heading, u"\r\n" + FormText(u"CutsCharacter")});
        }
    }
    view.TextParts().SetPieces(pieces);
}

// None for what is not in the form's text but in a person's name.
std::optional<Text> FormSmsPreview::Replacement(TextView text, TextView character) const {
    if (text.find(character) == TextView::npos) return {};
    std::optional<Text> replacement = LookAlike(character, arrivesAsGsm);
    if (!replacement || !replacement->empty()) return replacement;
    // An accent becomes one with its letter, where that can be.
    const std::size_t at = text.find(character);
    if (at == 0 || !CutsCharacter(text, at)) return replacement;
    return WithLookAlikes(text.substr(at - 1, character.size() + 1), arrivesAsGsm, character);
}

bool FormSmsPreview::HasRow(TextView character) const {
    return std::any_of(rows.begin(), rows.end(),
                       [character](const Row& row) { return row.character == character; });
}

// Of a character that forces UCS-2, where all others have been taken care of.
Text FormSmsPreview::CostOf(TextView text, TextView character, std::int64_t without) const {
    const std::int64_t with = PartsWithout(text, character);
    const Text cost = FormText(with > without ? u"Forces" : u"ForcesOnly");
    return ReplaceAll(ReplaceAll(cost, u"%n", NumberText(with)), u"%m", NumberText(without));
}

void FormSmsPreview::FindRows(TextView text, const QueueText& through, const AirCount& count) {
    rows.clear();
    for (const LostCharacter& lost : through.lost) {
        if (HasRow(lost.character)) continue;
        rows.push_back({lost.character, ReplaceAll(FormText(u"Lost"), u"%c", lost.arrives),
                        Replacement(text, lost.character)});
    }
    const TextView arrives = through.arrives;
    const std::int64_t without = PartsWithout(arrives, {});
    for (const std::size_t at : count.forcing) {
        const TextView character = arrives.substr(at, CharacterLength(arrives, at));
        if (HasRow(character)) continue;
        rows.push_back(
            {Text(character), CostOf(arrives, character, without), Replacement(text, character)});
    }
    if (count.encoding == AirEncoding::Ucs2) return;
    for (const char16_t unit : arrives) {
        if (SeptetsOf(unit) != 2 || HasRow({&unit, 1})) continue;
        rows.push_back({Text(1, unit), FormText(u"Doubles"), {}});
    }
}

void FormSmsPreview::ShowRows() {
    ListBox& list = view.ListCharacters();
    const std::int32_t before = list.SelectedIndex();
    list.Clear();
    bool any = false;
    for (const Row& row : rows) {
        Text replace = FormText(!row.replacement           ? u"NoReplacement"
                                : row.replacement->empty() ? u"LeaveOut"
                                                           : u"ReplaceBy");
        if (row.replacement) {
            any = true;
            const Text& shown = *row.replacement;
            replace = ReplaceAll(
                replace, u"%c",
                shown == u" " || shown == LineBreak ? CharacterName(language, shown) : shown);
        }
        list.Add(CharacterName(language, row.character) + u"\t" + row.cost + u"\t" + replace);
    }
    if (!rows.empty()) {
        list.SetSelectedIndex(std::clamp(before, 0, std::int32_t(rows.size()) - 1));
    }
    Enable(view.ButtonReplaceAll(), any);
    ListCharacters_Click();
}

// A button that is disabled would keep the focus, and no key would be heard.
void FormSmsPreview::Enable(Control& button, bool enabled) {
    if (!enabled && button.HasFocus()) view.ListCharacters().SetFocus();
    button.SetEnabled(enabled);
}

void FormSmsPreview::ListCharacters_Click() {
    const std::int32_t row = view.ListCharacters().SelectedIndex();
    Enable(view.ButtonReplace(),
           row >= 0 && std::size_t(row) < rows.size() && rows[std::size_t(row)].replacement);
}

void FormSmsPreview::ButtonBack_Click() {
    Procedure procedure{debug, u"ButtonBack_Click"};
    if (people.Move(-1)) ShowText();
}

void FormSmsPreview::ButtonForward_Click() {
    Procedure procedure{debug, u"ButtonForward_Click"};
    if (people.Move(1)) ShowText();
}

void FormSmsPreview::ListMissing_Click() {
    Procedure procedure{debug, u"ListMissing_Click"};
    people.MoveToChosen();
    ShowText();
}

void FormSmsPreview::ButtonReplace_Click() {
    Procedure procedure{debug, u"ButtonReplace_Click"};
    const std::int32_t row = view.ListCharacters().SelectedIndex();
    if (row >= 0 && std::size_t(row) < rows.size())
        Exchange(Text(rows[std::size_t(row)].character));
}

void FormSmsPreview::ButtonReplaceAll_Click() {
    Procedure procedure{debug, u"ButtonReplaceAll_Click"};
    Exchange({});
}

// The change comes back here by way of the form, which refreshes the window.
void FormSmsPreview::Exchange(TextView only) {
    const Text text = messageText.GetText();
    if (messageText.Exchange(WithLookAlikes(text, arrivesAsGsm, only))) return;
    // A text that fills the box has no room for what is longer.
    const Usable unlessLonger = [this](TextView character) {
        return arrivesAsGsm(character) ||
               LookAlike(character, arrivesAsGsm).value_or(Text()).size() > character.size();
    };
    messageText.Exchange(WithLookAlikes(text, unlessLonger, only));
}

void FormSmsPreview::ButtonOK_Click() {
    Procedure procedure{debug, u"ButtonOK_Click"};
    Unload();
}

}  // namespace tellwick
