#include "compose/AirCountLine.h"

#include <algorithm>

#include "compose/FormSmsSendView.h"
#include "compose/QueueText.h"
#include "recipients/RecipientField.h"
#include "settings/LanguageTexts.h"

namespace tellwick {

namespace {

constexpr TextView Separator = u" · ";

TextView EncodingName(AirEncoding encoding) {
    return encoding == AirEncoding::Gsm7 ? u"GSM" : u"Unicode";
}

}  // namespace

AirCountLine::AirCountLine(const Services& services, FormSmsSendView& view,
                           const RecipientField& recipientField, Locale& locale)
    : Services(services), view(view), recipientField(recipientField), locale(locale) {}

void AirCountLine::SwitchOn(bool newOn) {
    on = newOn;
    Update();
}

void AirCountLine::Update() {
    if (!on) {
        view.StatusBar1().SetPane({}, {});
        return;
    }
    const QueueText through = ThroughQueue(view.Message().GetText(), locale);
    const AirCount count = CountOnAir(through.arrives);
    const std::size_t all =
        count.parts.size() * std::max(recipientField.Recipients().size(), std::size_t(1));
    const Text shortLine = Text(EncodingName(count.encoding))
                               .append(Separator)
                               .append(NumberText(std::int64_t(all)))
                               .append(u" SMS");
    view.StatusBar1().SetPane(Describe(count, through.lost.size()), shortLine);
}

Text AirCountLine::Describe(const AirCount& count, std::size_t lost) const {
    const auto parts = std::int64_t(count.parts.size());
    const auto recipients = std::int64_t(recipientField.Recipients().size());
    Text line(EncodingName(count.encoding));
    line.append(Separator).append(NumberText(parts)).append(u" SMS");
    if (recipients > 1) {
        line.append(u" × ").append(NumberText(recipients));
        line.append(u" = ").append(NumberText(parts * recipients));
    }
    line.append(Separator).append(Number(u"AirFree", count.free));
    if (lost > 0) line.append(Separator).append(Number(u"AirLost", std::int64_t(lost)));
    return line;
}

Text AirCountLine::Number(TextView key, std::int64_t number) const {
    return ReplaceAll(language.TextOrBuiltIn(FormSmsSendTexts, key), u"%n", NumberText(number));
}

}  // namespace tellwick
