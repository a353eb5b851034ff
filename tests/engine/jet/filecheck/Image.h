#pragma once

#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

namespace engine::jet::filecheck {

/// Something that can't be read on. Whoever catches it knows what it was part of.
class Unreadable : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Bytes of a file. Whoever reads beside them meets Unreadable.
class View {
public:
    View() = default;
    explicit View(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

    std::size_t Size() const { return bytes_.size(); }
    std::span<const std::uint8_t> Bytes() const { return bytes_; }

    /// A number of up to 4 bytes, the lowest first.
    std::uint32_t Low(std::size_t at, std::size_t size) const;
    std::uint8_t Byte(std::size_t at) const { return static_cast<std::uint8_t>(Low(at, 1)); }
    bool Bit(std::size_t bit) const { return (Byte(bit / 8) >> bit % 8 & 1) != 0; }
    View Part(std::size_t at, std::size_t size) const;
    View From(std::size_t at) const;

private:
    std::span<const std::uint8_t> bytes_;
};

/// A row of a page.
struct Place {
    std::uint32_t page = 0;
    std::uint32_t row = 0;

    friend auto operator<=>(const Place&, const Place&) = default;
};

/// As rows and definitions name one: the row in 1 byte, then the page in 3.
Place PlaceAt(const View& bytes, std::size_t at);
std::string ToString(const Place& place);

/// What is wrong with a file, one sentence each.
class Findings {
public:
    explicit Findings(bool isLenient) : isLenient_(isLenient) {}

    void Fault(const std::string& where, const std::string& what) { faults_.push_back(where + ": " + what); }
    /// What files of other programs show as well.
    void Oddity(const std::string& where, const std::string& what) {
        if (!isLenient_) {
            Fault(where, what);
        }
    }

    const std::vector<std::string>& Faults() const { return faults_; }

private:
    bool isLenient_;
    std::vector<std::string> faults_;
};

/// A row as the list at the front of its page tells it.
struct Slot {
    std::uint32_t flags = 0;
    View bytes;
};

namespace SlotFlag {
inline constexpr std::uint32_t MovedHere = 0x8000;
inline constexpr std::uint32_t MovedAway = 0x4000;
inline constexpr std::uint32_t Deleted = 0xC000;
inline constexpr std::uint32_t Unknown = 0x2000;
}  // namespace SlotFlag

/// The pages of a file.
class Image {
public:
    static constexpr std::uint32_t PageSize = 4096;

    explicit Image(std::span<const std::uint8_t> file) : file_(file) {}

    std::uint32_t Count() const { return static_cast<std::uint32_t>(file_.Size() / PageSize); }
    View Page(std::uint32_t number) const;
    /// The first byte: what kind of page it is.
    std::uint8_t Kind(std::uint32_t number) const { return Page(number).Byte(0); }
    /// A row of a data page, whatever its state.
    Slot RowAt(const Place& place) const;

    /// Looks at the list of rows of a data page, and at its count of free bytes.
    void CheckDataPage(std::uint32_t number, Findings& findings) const;

private:
    View file_;
};

}  // namespace engine::jet::filecheck
