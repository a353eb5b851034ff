#include "Header.h"

#include <numeric>

namespace engine::jet::filecheck {

namespace {

constexpr std::size_t MaskedAt = 0x18;
constexpr std::size_t MaskedSize = 128;
constexpr std::uint8_t MaskKey[] = {0xC7, 0xDA, 0x39, 0x6B};
constexpr std::size_t PageKeyAt = 0x3E;
constexpr std::size_t SortOrderAt = 0x6E;
constexpr std::uint32_t GeneralOrder = 0x0409;

// The part behind the mask, which is the stream of the cipher RC4.
std::vector<std::uint8_t> Unmasked(const View& page) {
    std::vector<unsigned> state(256);
    std::iota(state.begin(), state.end(), 0U);
    unsigned other = 0;
    for (unsigned at = 0; at < 256; ++at) {
        other = (other + state[at] + MaskKey[at % 4]) % 256;
        std::swap(state[at], state[other]);
    }
    std::vector<std::uint8_t> plain;
    other = 0;
    for (unsigned at = 1; at <= MaskedSize; ++at) {
        other = (other + state[at]) % 256;
        std::swap(state[at], state[other]);
        plain.push_back(static_cast<std::uint8_t>(page.Byte(MaskedAt + at - 1) ^
                                                  state[(state[at] + state[other]) % 256]));
    }
    return plain;
}

}  // namespace

void CheckHeader(const View& page, Findings& findings) {
    using namespace std::string_literals;
    const std::string expected = "\0\1\0\0Standard Jet DB\0\1\0\0\0"s;
    const auto front = page.Part(0, expected.size()).Bytes();
    if (std::string(front.begin(), front.end()) != expected) {
        findings.Fault("header", "isn't that of a file of this format");
    }
    const std::vector<std::uint8_t> plain = Unmasked(page);
    if (View(plain).Low(PageKeyAt - MaskedAt, 4) != 0) {
        findings.Fault("header", "says that the pages are encoded");
    }
    if (View(plain).Low(SortOrderAt - MaskedAt, 4) != GeneralOrder) {
        findings.Oddity("header", "says that texts are in another order");
    }
}

}  // namespace engine::jet::filecheck
