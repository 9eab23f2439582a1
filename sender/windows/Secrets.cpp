#include "windows/Secrets.h"

#include "windows/Com.h"

#include <wincrypt.h>

#include <cstring>

#include "settings/InifilesLite.h"
#include "windows/SystemFunction.h"

namespace tellwick::sender {

namespace {

constexpr TextView Section = u"Sender";
constexpr wchar_t LibraryName[] = L"crypt32.dll";

Text EncryptedName(TextView name) {
    return Text(name) + u"Encrypted";
}

// What one of the system's functions makes of the bytes; empty when it fails.
template <class Function>
std::string Convert(std::string bytes, const Function& function) {
    DATA_BLOB in{DWORD(bytes.size()), reinterpret_cast<BYTE*>(bytes.data())};
    DATA_BLOB out{};
    if (!function(&in, &out)) return {};
    std::string converted(reinterpret_cast<const char*>(out.pbData), out.cbData);
    SecureZeroMemory(out.pbData, out.cbData);
    LocalFree(out.pbData);
    return converted;
}

std::string Encrypted(TextView value) {
    const auto protect =
        windows::SystemFunction<decltype(&CryptProtectData)>(LibraryName, "CryptProtectData");
    if (!protect) return {};
    std::string bytes(value.size() * sizeof(char16_t), '\0');
    std::memcpy(bytes.data(), value.data(), bytes.size());
    return Convert(std::move(bytes), [protect](DATA_BLOB* in, DATA_BLOB* out) {
        return protect(in, L"Tellwick", nullptr, nullptr, nullptr, CRYPTPROTECT_UI_FORBIDDEN, out);
    });
}

Text Decrypted(std::string bytes) {
    const auto unprotect =
        windows::SystemFunction<decltype(&CryptUnprotectData)>(LibraryName, "CryptUnprotectData");
    if (!unprotect) return {};
    const std::string plain = Convert(std::move(bytes), [unprotect](DATA_BLOB* in, DATA_BLOB* out) {
        return unprotect(in, nullptr, nullptr, nullptr, nullptr, CRYPTPROTECT_UI_FORBIDDEN, out);
    });
    Text value(plain.size() / sizeof(char16_t), u'\0');
    std::memcpy(value.data(), plain.data(), value.size() * sizeof(char16_t));
    return value;
}

Text ToHex(std::string_view bytes) {
    constexpr TextView Digits = u"0123456789ABCDEF";
    Text hex;
    for (const char byte : bytes) {
        hex += Digits[(byte >> 4) & 0xF];
        hex += Digits[byte & 0xF];
    }
    return hex;
}

std::string FromHex(TextView hex) {
    std::string bytes;
    for (std::size_t at = 0; at + 1 < hex.size(); at += 2) {
        const auto digit = [](char16_t unit) {
            return IsDigit(unit) ? unit - u'0' : (LowerCase(unit) - u'a' + 10) & 0xF;
        };
        bytes += char(digit(hex[at]) << 4 | digit(hex[at + 1]));
    }
    return bytes;
}

}  // namespace

Text Secrets::Read(TextView name) {
    Text plain = inifilesLite.GetIniSetting(Section, name);
    if (!plain.empty()) {
        Write(name, plain);
        return plain;
    }
    const Text encrypted = inifilesLite.GetIniSetting(Section, EncryptedName(name));
    return encrypted.empty() ? Text() : Decrypted(FromHex(encrypted));
}

bool Secrets::Write(TextView name, TextView value) {
    const Text encrypted = value.empty() ? Text() : ToHex(Encrypted(value));
    if (encrypted.empty() && !value.empty()) return false;
    return inifilesLite.SetIniSetting(Section, EncryptedName(name), encrypted) &&
           inifilesLite.SetIniSetting(Section, name, Text());
}

}  // namespace tellwick::sender
