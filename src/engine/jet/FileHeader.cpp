#include "engine/jet/FileHeader.h"

#include "engine/Error.h"
#include "engine/jet/Bytes.h"

#include <array>
#include <cstring>
#include <numeric>
#include <string_view>

namespace engine::jet {

namespace {

constexpr std::uint32_t FirstBytes = 0x00000100;
constexpr std::string_view Name("Standard Jet DB\0", 16);
constexpr std::size_t NameAt = 4;
constexpr std::size_t FormatAt = 0x14;
constexpr std::uint32_t Jet4 = 1;

// What lies here is hidden behind a stream of bytes that is the same in every file.
constexpr std::size_t MaskedAt = 0x18;
constexpr std::size_t MaskedSize = 128;
constexpr std::array<std::uint8_t, 4> MaskKey{0xC7, 0xDA, 0x39, 0x6B};

constexpr std::size_t CodePageAt = 0x3C;
constexpr std::size_t PageKeyAt = 0x3E;
constexpr std::size_t PasswordAt = 0x42;
constexpr std::size_t PasswordSize = 40;
constexpr std::size_t SortOrderAt = 0x6E;
constexpr std::uint32_t GeneralOrder = 0x0409;
constexpr std::size_t CreatedAt = 0x72;

constexpr std::uint16_t WesternCodePage = 1252;

// What every file has in these places.
constexpr std::array<std::uint32_t, 6> SystemNumbers{0x100, 0x101, 2, 3, 4, 5};
constexpr std::size_t BuildAt = 0x6A;
constexpr std::uint32_t Build = 0x261C;
constexpr std::size_t VersionAt = 0x98;
constexpr std::uint32_t VersionMark = 0x654;
constexpr std::uint16_t UntouchedCommitWord = 0x100;

constexpr double Created = 42329.94480300926;

// The cipher RC4, which makes no difference between masking and unmasking.
void Mask(Page& header) {
    std::array<std::uint8_t, 256> state{};
    std::iota(state.begin(), state.end(), std::uint8_t{0});
    std::uint8_t j = 0;
    for (std::size_t i = 0; i < state.size(); ++i) {
        j = static_cast<std::uint8_t>(j + state[i] + MaskKey[i % MaskKey.size()]);
        std::swap(state[i], state[j]);
    }
    j = 0;
    for (std::size_t at = 0; at < MaskedSize; ++at) {
        const std::size_t i = at + 1;
        j = static_cast<std::uint8_t>(j + state[i]);
        std::swap(state[i], state[j]);
        header[MaskedAt + at] ^= state[static_cast<std::uint8_t>(state[i] + state[j])];
    }
}

void CheckFormat(const Page& header, const QString& path) {
    const Bytes bytes(header, 0);
    if (bytes.U32(0) != FirstBytes || std::memcmp(header.data() + NameAt, Name.data(), Name.size()) != 0) {
        RaiseUnrecognized(path, QStringLiteral("it is no Jet file"));
    }
    const std::uint32_t format = bytes.U32(FormatAt);
    if (format != Jet4) {
        RaiseUnrecognized(path, QStringLiteral("it is of a %1 format than Jet 4 (number %2)")
                                    .arg(format < Jet4 ? QStringLiteral("earlier") : QStringLiteral("later"))
                                    .arg(format));
    }
}

}  // namespace

void CheckFileHeader(const Page& header, const QString& path) {
    CheckFormat(header, path);
    Page plain = header;
    Mask(plain);
    const Bytes bytes(plain, 0);
    if (const std::uint32_t key = bytes.U32(PageKeyAt); key != 0) {
        RaiseUnrecognized(path, QStringLiteral("its pages are encoded"));
    }
    if (const std::uint32_t order = bytes.U32(SortOrderAt); order != GeneralOrder) {
        RaiseUnrecognized(
            path, QStringLiteral("its texts are in the sort order 0x%1, version %2, not in the General one")
                      .arg(order & 0xFFFF, 4, 16, QLatin1Char('0'))
                      .arg(order >> 24));
    }
}

Page MakeFileHeader() {
    Page header{};
    ChangeableBytes bytes(header, 0);
    bytes.Put32(0, FirstBytes);
    std::memcpy(header.data() + NameAt, Name.data(), Name.size());
    bytes.Put32(FormatAt, Jet4);
    for (std::size_t place = 0; place < SystemNumbers.size(); ++place) {
        bytes.Put32(MaskedAt + 4 * place, SystemNumbers[place]);
    }
    bytes.Put16(CodePageAt, WesternCodePage);
    // No password: each 4 bytes of it are combined with the day of creation.
    for (std::size_t at = 0; at < PasswordSize; at += 4) {
        bytes.Put32(PasswordAt + at, static_cast<std::uint32_t>(Created));
    }
    bytes.Put32(BuildAt, Build);
    bytes.Put32(SortOrderAt, GeneralOrder);
    const double created = Created;
    std::memcpy(header.data() + CreatedAt, &created, sizeof created);
    Mask(header);
    bytes.Put32(VersionAt, VersionMark);
    std::memcpy(header.data() + VersionAt + 4, "4.0", 4);
    for (std::size_t at = 0; at < CommitWordsSize; at += 2) {
        bytes.Put16(CommitWordsAt + at, UntouchedCommitWord);
    }
    return header;
}

}  // namespace engine::jet
