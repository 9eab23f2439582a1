#include "compose/AirCountLine.h"

#include <algorithm>

#include "compose/FormSmsSendView.h"
#include "compose/PersonalTexts.h"
#include "compose/QueueText.h"
#include "recipients/RecipientField.h"
#include "settings/LanguageTexts.h"

namespace tellwick {

namespace {

constexpr TextView Separator = u" · ";

}  // namespace

AirCountLine::AirCountLine(const Services& services, FormSmsSendView& view,
                           const RecipientField& recipientField, const PersonalTexts& personalTexts,
                           Locale& locale)
    : Services(services),
      view(view),
      recipientField(recipientField),
      personalTexts(personalTexts),
      locale(locale) {}

void AirCountLine::SwitchOn(bool newOn) {
    on = newOn;
    Update();
}

void AirCountLine::Update() {
    if (!on) {
        view.StatusBar1().SetPane({}, {});
        return;
    }
    const Sum sum = CountAll();
    const Text shortLine =
        EncodingOf(sum).append(Separator).append(NumberText(std::int64_t(sum.all))).append(u" SMS");
    view.StatusBar1().SetPane(Describe(sum), shortLine);
}

AirCountLine::Sum AirCountLine::CountAll() const {
    Sum sum;
    if (personalTexts.Wanted()) {
        for (const PersonalText& each : personalTexts.All()) Count(sum, each.filled.text.text);
        if (sum.recipients > 0) return sum;
    }
    Count(sum, view.Message().GetText());
    sum.recipients = std::max(recipientField.Recipients().size(), std::size_t(1));
    sum.all = sum.most * sum.recipients;
    return sum;
}

// One more recipient.
void AirCountLine::Count(Sum& sum, TextView text) const {
    const QueueText through = ThroughQueue(text, locale);
    const AirCount count = CountOnAir(through.arrives);
    const std::size_t parts = count.parts.size();
    const bool first = sum.recipients++ == 0;
    (count.encoding == AirEncoding::Gsm7 ? sum.gsm : sum.unicode) = true;
    sum.least = first ? parts : std::min(sum.least, parts);
    sum.most = std::max(sum.most, parts);
    sum.all += parts;
    sum.free = first ? count.free : std::min(sum.free, count.free);
    sum.lost = std::max(sum.lost, through.lost.size());
}

Text AirCountLine::EncodingOf(const Sum& sum) {
    return !sum.unicode ? u"GSM" : !sum.gsm ? u"Unicode" : u"GSM/Unicode";
}

Text AirCountLine::Describe() const {
    return Describe(CountAll());
}

Text AirCountLine::Describe(const Sum& sum) const {
    Text line = EncodingOf(sum);
    line.append(Separator).append(NumberText(std::int64_t(sum.least)));
    if (sum.most > sum.least) line.append(u"–").append(NumberText(std::int64_t(sum.most)));
    line.append(u" SMS");
    if (sum.recipients > 1) {
        line.append(u" × ").append(NumberText(std::int64_t(sum.recipients)));
        line.append(u" = ").append(NumberText(std::int64_t(sum.all)));
    }
    line.append(Separator).append(Number(u"AirFree", sum.free));
    if (sum.lost > 0) line.append(Separator).append(Number(u"AirLost", std::int64_t(sum.lost)));
    return line;
}

Text AirCountLine::Number(TextView key, std::int64_t number) const {
    return ReplaceAll(language.TextOrBuiltIn(FormSmsSendTexts, key), u"%n", NumberText(number));
}

}  // namespace tellwick
