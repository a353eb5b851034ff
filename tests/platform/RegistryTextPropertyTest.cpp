#include "platform/SettingsStore.h"
#include "support/PrintQt.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace {

using platform::ParseRegistryText;

const QByteArray Begin = "Windows Registry Editor Version 5.00\n[K]\n";

QByteArray Escaped(QByteArray text) {
    return text.replace("\\", "\\\\").replace("\"", "\\\"");
}

RC_GTEST_PROP(RegistryText, AnyTextComesBackAsItWas, ()) {
    const auto characters = *rc::gen::container<std::u32string>(rc::gen::oneOf(
        rc::gen::inRange<char32_t>(0x20, 0x7F), rc::gen::inRange<char32_t>(0xA0, 0xD800),
        rc::gen::inRange<char32_t>(0x10000, 0x110000), rc::gen::element<char32_t>(U'\\', U'"', U';', U'[')));
    const QByteArray text = QString::fromStdU32String(characters).toUtf8();
    const auto keys = ParseRegistryText(Begin + "\"v\"=\"" + Escaped(text) + "\"\n");
    RC_ASSERT(keys.value(QStringLiteral("k")).value(QStringLiteral("v")).bytes ==
              QByteArray(text).append('\0'));
}

RC_GTEST_PROP(RegistryText, AnyBytesComeBackAsTheyWere, (const std::vector<unsigned char>& bytes)) {
    QByteArray raw;
    for (const unsigned char byte : bytes) {
        raw.append(static_cast<char>(byte));
    }
    const auto keys = ParseRegistryText(Begin + "\"v\"=hex:" + raw.toHex(',') + "\n");
    RC_ASSERT(keys.value(QStringLiteral("k")).value(QStringLiteral("v")).bytes == raw);
}

RC_GTEST_PROP(RegistryText, NoBytesBringTheReaderDown, ()) {
    const auto pieces = *rc::gen::container<std::vector<std::string>>(
        rc::gen::element<std::string>("\"", "\\", "=", "hex", "(", ")", ":", "dword:", "[", "]", "-", "@",
                                      ",", "a", "1", "\n", "\r\n", ";", " ", "\xFF", "\xC3"));
    QByteArray text = *rc::gen::element<QByteArray>("", Begin, "\xFF\xFE");
    for (const std::string& piece : pieces) {
        text += QByteArray::fromStdString(piece);
    }
    const auto keys = ParseRegistryText(text);
    for (auto key = keys.begin(); key != keys.end(); ++key) {
        RC_ASSERT(key.key() == key.key().toLower());
    }
}

}  // namespace
