#include "recipients/TextTemplates.h"

#include <algorithm>
#include <utility>

#include "platform/Keys.h"
#include "settings/Debug.h"
#include "settings/InifilesLite.h"
#include "settings/LanguageTexts.h"
#include "settings/Policies.h"
#include "settings/QuestionBox.h"

namespace tellwick {

namespace {

constexpr TextView Section = u"Texte";
constexpr std::int32_t MostTemplates = 100;

Text TemplateKey(std::int32_t index) {
    return u"Text" + NumberText(index);
}

}  // namespace

void SortList(Debug& debug, std::vector<Text>& list, std::int32_t bound) {
    Procedure procedure{debug, u"SortList"};
    const std::int32_t upper = std::int32_t(list.size()) - 1;
    if (bound < 0 || bound > upper) bound = upper;
    if (bound < 0) return;
    std::vector<Text> lower;
    lower.reserve(list.size());
    for (const Text& text : list) lower.push_back(LowerCase(text));
    // So many passes suffice for every list; the limit only guards.
    bool swapped = true;
    for (std::int64_t pass = 0; swapped && pass < std::int64_t(10) * bound; ++pass) {
        swapped = false;
        for (std::size_t i = 0; i < std::size_t(bound); ++i) {
            if (lower[i] <= lower[i + 1]) continue;
            std::swap(lower[i], lower[i + 1]);
            std::swap(list[i], list[i + 1]);
            swapped = true;
        }
    }
}

TextTemplates::TextTemplates(const Services& services, ComboBox& comboBoxTextbausteine,
                             Inserter insert)
    : Services(services), comboBoxTextbausteine(comboBoxTextbausteine), insert(std::move(insert)) {}

void TextTemplates::GetTextbausteine() {
    Procedure procedure{debug, u"GetTextbausteine"};
    inifilesLite.LookForPolicies();
    const Policies& policies = inifilesLite.Given();
    fixed = !policies.FixedTemplates().empty();
    TemplateList = fixed ? policies.FixedTemplates() : OwnTemplates();
    given = TemplateList.empty();
    if (given) TemplateList = policies.DefaultTemplates();
    if (TemplateList.size() > std::size_t(MostTemplates)) {
        TemplateList.resize(std::size_t(MostTemplates));
    }
    if (TemplateList.empty()) TemplateList.emplace_back();
    TemplateListBound = std::int32_t(TemplateList.size()) - 1;
    SortList(debug, TemplateList, TemplateListBound);
    loaded = TemplateList;
}

std::vector<Text> TextTemplates::OwnTemplates() {
    std::vector<Text> templates;
    for (std::int32_t index = 0; index < MostTemplates; ++index) {
        // The first read looks whether the file has changed.
        Text text = inifilesLite.GetIniSetting(Section, TemplateKey(index), {}, false,
                                               std::int16_t(index == 0 ? -1 : 0));
        if (text.empty()) break;
        templates.push_back(std::move(text));
    }
    return templates;
}

bool TextTemplates::Fixed() {
    if (fixed) {
        questionBox.MsgBoxEx(language.TextOrBuiltIn(u"FormSmsSend", u"TemplatesFixed"),
                             box::IconInformation);
    }
    return fixed;
}

void TextTemplates::Fill() {
    if (comboBoxTextbausteine.Count() == 0) Refill();
}

void TextTemplates::Refill() {
    comboBoxTextbausteine.Clear();
    if (IsEmpty()) return;
    for (const Text& text : TemplateList) comboBoxTextbausteine.Add(text);
}

void TextTemplates::Save() {
    // What an administrator has given does not become the user's own.
    if (fixed || (given && TemplateList == loaded)) return;
    for (std::int32_t index = 0; index <= TemplateListBound; ++index) {
        const Text& text = TemplateList[std::size_t(index)];
        inifilesLite.SetIniSetting(Section, TemplateKey(index), ToSetting(text));
    }
    // What stood behind the last template must not come back with a later load.
    for (std::int32_t index = TemplateListBound + 1; index < MostTemplates; ++index) {
        if (inifilesLite.GetIniSetting(Section, TemplateKey(index)).empty()) break;
        inifilesLite.SetIniSetting(Section, TemplateKey(index), u"");
    }
}

bool TextTemplates::ComboBoxTextbausteine_KeyDown(std::int32_t keyCode, std::int32_t shift) {
    if (keyCode != key::Enter || shift != 0) return false;
    ButtonInsert_Click();
    return true;
}

void TextTemplates::ButtonAdd_Click() {
    Procedure procedure{debug, u"ButtonAdd_Click"};
    const Text text = comboBoxTextbausteine.GetText();
    if (text.empty() || Fixed()) return;
    if (std::find(TemplateList.begin(), TemplateList.end(), text) != TemplateList.end()) return;
    if (IsEmpty()) {
        TemplateList[0] = text;
    } else {
        ++TemplateListBound;
        TemplateList.push_back(text);
    }
    SortList(debug, TemplateList, TemplateListBound);
    Refill();
    const auto found = std::find(TemplateList.begin(), TemplateList.end(), text);
    comboBoxTextbausteine.SetSelectedIndex(std::int32_t(found - TemplateList.begin()));
}

void TextTemplates::ButtonDel_Click() {
    Procedure procedure{debug, u"ButtonDel_Click"};
    const std::int32_t chosen = comboBoxTextbausteine.SelectedIndex();
    if (chosen < 0 || chosen > TemplateListBound || IsEmpty() || Fixed()) return;
    TemplateList.erase(TemplateList.begin() + chosen);
    --TemplateListBound;
    if (TemplateList.empty()) {
        TemplateList.emplace_back();
        TemplateListBound = 0;
    }
    Refill();
    comboBoxTextbausteine.SetText(u"");
}

void TextTemplates::ButtonInsert_Click() {
    Procedure procedure{debug, u"ButtonInsert_Click"};
    InsertText(comboBoxTextbausteine.GetText());
}

void TextTemplates::InsertText(TextView text) {
    Procedure procedure{debug, u"InsertText"};
    if (!text.empty()) insert(FromSetting(text));
}

}  // namespace tellwick
