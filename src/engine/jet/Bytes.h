#pragma once

#include "engine/jet/PageStore.h"

#include <QByteArray>

#include <bit>
#include <cstring>
#include <span>

namespace engine::jet {

static_assert(std::endian::native == std::endian::little, "the file's order of bytes is the machine's");

/// Bytes of a page, or of a part of one, read little-endian.
///
/// Whatever lengths and offsets a file holds, nothing is read beside them: a place outside of the part is an
/// engine error (DatabaseDamaged) that names the page. The bytes themselves belong to the page and are worth
/// as much as it is: a change of the page is seen here, also one that moves them.
class Bytes {
public:
    Bytes(const std::uint8_t* bytes, std::size_t size, PageNumber page)
        : bytes_(bytes), size_(size), page_(page) {}
    Bytes(const Page& bytes, PageNumber page) : Bytes(bytes.data(), bytes.size(), page) {}

    std::size_t Size() const { return size_; }
    PageNumber OfPage() const { return page_; }
    const std::uint8_t* Data() const { return bytes_; }

    std::uint8_t U8(std::size_t at) const { return Number<std::uint8_t>(at, 1); }
    std::uint16_t U16(std::size_t at) const { return Number<std::uint16_t>(at, 2); }
    std::uint32_t U24(std::size_t at) const { return Number<std::uint32_t>(at, 3); }
    std::uint32_t U32(std::size_t at) const { return Number<std::uint32_t>(at, 4); }
    std::uint64_t U64(std::size_t at) const { return Number<std::uint64_t>(at, 8); }

    Bytes Part(std::size_t at, std::size_t size) const {
        Require(at, size);
        return {bytes_ + at, size, page_};
    }
    Bytes From(std::size_t at) const {
        Require(at, 0);
        return {bytes_ + at, size_ - at, page_};
    }

    QByteArray Copy() const { return {reinterpret_cast<const char*>(bytes_), static_cast<qsizetype>(size_)}; }

protected:
    void Require(std::size_t at, std::size_t size) const {
        if (at > size_ || size > size_ - at) {
            RaiseOutside(at, size);
        }
    }

private:
    template <class Unsigned>
    Unsigned Number(std::size_t at, std::size_t size) const {
        Require(at, size);
        Unsigned number = 0;
        std::memcpy(&number, bytes_ + at, size);
        return number;
    }

    [[noreturn]] void RaiseOutside(std::size_t at, std::size_t size) const;

    const std::uint8_t* bytes_;
    std::size_t size_;
    PageNumber page_;
};

/// The same for bytes that may be changed.
class ChangeableBytes : public Bytes {
public:
    ChangeableBytes(std::uint8_t* bytes, std::size_t size, PageNumber page)
        : Bytes(bytes, size, page), bytes_(bytes) {}
    ChangeableBytes(Page& bytes, PageNumber page) : ChangeableBytes(bytes.data(), bytes.size(), page) {}

    void Put8(std::size_t at, std::uint8_t number) { Put(at, number, 1); }
    void Put16(std::size_t at, std::uint16_t number) { Put(at, number, 2); }
    void Put24(std::size_t at, std::uint32_t number) { Put(at, number, 3); }
    void Put32(std::size_t at, std::uint32_t number) { Put(at, number, 4); }

    void PutBytes(std::size_t at, const Bytes& source) {
        Require(at, source.Size());
        if (source.Size() > 0) {
            std::memmove(bytes_ + at, source.Data(), source.Size());
        }
    }
    void Fill(std::size_t at, std::size_t size, std::uint8_t byte) {
        Require(at, size);
        std::fill_n(bytes_ + at, size, byte);
    }

    ChangeableBytes ChangeablePart(std::size_t at, std::size_t size) const {
        Require(at, size);
        return {bytes_ + at, size, OfPage()};
    }

private:
    void Put(std::size_t at, std::uint64_t number, std::size_t size) {
        Require(at, size);
        std::memcpy(bytes_ + at, &number, size);
    }

    std::uint8_t* bytes_;
};

/// Bytes that are kept elsewhere than in a page, such as a definition joined from several of them. `page` is
/// the one that failures name.
inline Bytes BytesOf(const QByteArray& bytes, PageNumber page) {
    return {reinterpret_cast<const std::uint8_t*>(bytes.constData()), static_cast<std::size_t>(bytes.size()),
            page};
}

inline ChangeableBytes ChangeableBytesOf(QByteArray& bytes, PageNumber page) {
    return {reinterpret_cast<std::uint8_t*>(bytes.data()), static_cast<std::size_t>(bytes.size()), page};
}

}  // namespace engine::jet
