#include "recipients/Person.h"

#include <algorithm>
#include <iterator>
#include <vector>

namespace tellwick {

namespace {

// That have no dot.
constexpr TextView Titles[] = {u"Herr", u"Frau", u"Miss", u"Madame", u"Mme", u"Mlle"};

bool IsTitle(TextView word) {
    return word.ends_with(u'.') ||
           std::ranges::any_of(Titles, [&](TextView title) { return EqualFolded(word, title); });
}

bool IsSuffix(TextView word) {
    return word.ends_with(u'.') || word.find_first_not_of(u"IVX") == TextView::npos;
}

// "von", "de la": the last name begins there.
bool IsParticle(TextView word) {
    return LowerCase(word[0]) == word[0] && !IsDigit(word[0]);
}

std::vector<Text> WordsOf(TextView text) {
    std::vector<Text> words = Split(text, u" ");
    std::erase(words, Text());
    return words;
}

Text Joined(const std::vector<Text>& words, std::size_t first) {
    Text joined;
    for (std::size_t at = first; at < words.size(); ++at)
        joined.append(joined.empty() ? u"" : u" ").append(words[at]);
    return joined;
}

// "Anna Berger"
void SplitName(TextView name, Person& person) {
    std::vector<Text> words = WordsOf(name);
    while (words.size() > 1 && IsTitle(words.front())) words.erase(words.begin());
    while (words.size() > 2 && IsSuffix(words.back())) words.pop_back();
    if (words.empty()) return;
    person.firstName = words[0];
    if (words.size() == 1) return;
    const auto particle = std::find_if(words.begin() + 1, words.end() - 1, IsParticle);
    person.lastName = Joined(words, std::size_t(particle - words.begin()));
}

// "Berger, Anna", which may have the company before or behind it.
bool SplitFiled(TextView filed, TextView company, Person& person) {
    Text text(filed);
    std::ranges::replace_if(
        text, [](char16_t unit) { return unit == u'(' || unit == u')'; }, u' ');
    text = Trimmed(text);
    if (!company.empty() && StartsWithFolded(text, Text(company).append(u" ")))
        text.erase(0, company.size());
    const std::size_t comma = text.find(u',');
    if (comma == Text::npos) return false;
    const Text last = Joined(WordsOf(TextView(text).substr(0, comma)), 0);
    std::vector<Text> given = WordsOf(TextView(text).substr(comma + 1));
    while (given.size() > 1 && IsTitle(given.front())) given.erase(given.begin());
    if (last.empty() || given.empty()) return false;
    person.firstName = given[0];
    person.lastName = last;
    return true;
}

}  // namespace

Person PersonNamed(TextView name, TextView fileAs, TextView company) {
    Person person{{}, {}, Text(name), Text(company)};
    if (EqualFolded(name, company)) return person;
    // How it is filed counts where it names the same person.
    if (SplitFiled(fileAs, company, person) &&
        FindFolded(name, person.firstName) != TextView::npos &&
        FindFolded(name, person.lastName) != TextView::npos) {
        return person;
    }
    if (SplitFiled(name, company, person)) return person;
    SplitName(name, person);
    return person;
}

}  // namespace tellwick
