#include "outlook/CommandText.h"

#include <algorithm>
#include <cstdio>
#include <stdexcept>

#include "platform/OutlookEvents.h"

namespace tellwick::standin {

namespace {

using namespace tellwick::outlook;

std::string ToUtf8(TextView text) {
    const auto* wide = reinterpret_cast<const wchar_t*>(text.data());
    const int length =
        WideCharToMultiByte(CP_UTF8, 0, wide, int(text.size()), nullptr, 0, nullptr, nullptr);
    std::string bytes(std::size_t(length), '\0');
    WideCharToMultiByte(CP_UTF8, 0, wide, int(text.size()), bytes.data(), length, nullptr, nullptr);
    return bytes;
}

Text Describe(const CommandBarControl& control, std::size_t index) {
    Text text = NumberText(std::int64_t(index + 1)) + u" " +
                Quoted(ReplaceAll(control.caption, u"&", u"")) + u" tag=" + Quoted(control.tag) +
                u" action=" + Quoted(control.onAction) + u" parameter=" + Quoted(control.parameter);
    const auto flag = [&](TextView name, std::int32_t value) {
        text += u" " + Text(name) + u"=" + NumberText(value);
    };
    if (const auto* button = dynamic_cast<const CommandBarButton*>(&control)) {
        flag(u"style", button->style);
    }
    flag(u"group", control.beginGroup);
    flag(u"visible", control.visible);
    flag(u"temporary", control.temporary);
    flag(u"builtin", control.BuiltIn());
    return text + u" face=" + FaceText(FaceOf(control));
}

}  // namespace

Text FromUtf8(std::string_view bytes) {
    const int length = MultiByteToWideChar(CP_UTF8, 0, bytes.data(), int(bytes.size()), nullptr, 0);
    Text text(std::size_t(length), u'\0');
    MultiByteToWideChar(CP_UTF8, 0, bytes.data(), int(bytes.size()),
                        reinterpret_cast<wchar_t*>(text.data()), length);
    return text;
}

std::vector<Text> SplitWords(TextView line) {
    std::vector<Text> words;
    bool inWord = false;
    bool quoted = false;
    for (std::size_t index = 0; index < line.size(); ++index) {
        char16_t unit = line[index];
        if (!quoted && (unit == u' ' || unit == Tab)) {
            inWord = false;
            continue;
        }
        if (!inWord) words.emplace_back();
        inWord = true;
        if (unit == u'"') {
            quoted = !quoted;
            continue;
        }
        if (quoted && unit == u'\\' && index + 1 < line.size()) {
            unit = line[++index];
            if (unit == u'n') unit = LineFeed;
            if (unit == u'r') unit = CarriageReturn;
            if (unit == u't') unit = Tab;
        }
        words.back() += unit;
    }
    return words;
}

Text Quoted(TextView text) {
    Text quoted = ReplaceAll(ReplaceAll(text, u"\\", u"\\\\"), u"\"", u"\\\"");
    quoted = ReplaceAll(ReplaceAll(quoted, u"\r", u"\\r"), u"\n", u"\\n");
    return u"\"" + ReplaceAll(quoted, u"\t", u"\\t") + u"\"";
}

Text Joined(const std::vector<Text>& entries) {
    Text joined;
    for (const Text& entry : entries) joined += (joined.empty() ? u"" : u" | ") + entry;
    return joined;
}

Text RealText(double number) {
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%.2f", number);
    return FromUtf8(buffer);
}

TextView KindOf(const Item& item) {
    switch (item.itemClass) {
        case ContactClass:
            return u"contact";
        case AppointmentClass:
            return u"appointment";
        case DistributionListClass:
            return u"list";
        default:
            return u"mail";
    }
}

Text FaceText(const Face& face) {
    if (face.IsEmpty()) return u"none";
    std::vector<std::uint32_t> colours = face.pixels;
    std::sort(colours.begin(), colours.end());
    const auto end = std::unique(colours.begin(), colours.end());
    const bool transparent = std::find(colours.begin(), end, Transparent) != end;
    return NumberText(face.width) + u"x" + NumberText(face.height) + u"/" +
           NumberText(end - colours.begin()) + (transparent ? u"/transparent" : u"");
}

Text DescribeAll(CommandBar& bar) {
    std::vector<Text> entries;
    const auto& all = bar.Controls()->all;
    for (std::size_t index = 0; index < all.size(); ++index) {
        entries.push_back(Describe(*all[index], index));
    }
    return Joined(entries);
}

Text ScreenRectangle(const RECT& rectangle) {
    return NumberText(rectangle.left) + u" " + NumberText(rectangle.top) + u" " +
           NumberText(rectangle.right) + u" " + NumberText(rectangle.bottom);
}

void Require(bool condition, const char* message) {
    if (!condition) throw std::runtime_error(message);
}

void PrintLine(TextView line) {
    const std::string bytes = ToUtf8(line) + "\n";
    std::fwrite(bytes.data(), 1, bytes.size(), stdout);
    std::fflush(stdout);
}

}  // namespace tellwick::standin
