#pragma once

#include "engine/jet/Bytes.h"

#include <cstring>
#include <vector>

namespace engine::jet {

/// What a row is to hold: for each column of its table the bytes, or none for null. A boolean is there for
/// yes, without bytes, and not there for no.
///
/// All bytes lie in one piece of memory, which the next row takes over: a row that is put in by the thousand
/// asks for none.
class RowCells {
public:
    /// Of this many columns, all of them null.
    void Clear(std::size_t columns) {
        cells_.assign(columns, {});
        used_ = 0;
    }

    std::size_t Count() const { return cells_.size(); }
    bool Has(int column) const { return At(column).isThere; }
    /// Of a column that is there. They stand until the next change.
    Bytes BytesOf(int column) const { return {bytes_.data() + At(column).at, At(column).size, 0}; }

    void SetNull(int column) { At(column) = {}; }
    /// Bytes of another place than these cells.
    void Set(int column, const void* bytes, std::size_t size) {
        At(column) = {true, 0, used_};
        Lengthen(column, bytes, size);
    }
    /// Further bytes for the column that was set last.
    void Lengthen(int column, const void* bytes, std::size_t size) {
        if (size > bytes_.size() - used_) {
            bytes_.resize(2 * (used_ + size));
        }
        if (size > 0) {
            std::memcpy(bytes_.data() + used_, bytes, size);
        }
        used_ += size;
        At(column).size += static_cast<std::uint32_t>(size);
    }
    void Set(int column, const Bytes& bytes) { Set(column, bytes.Data(), bytes.Size()); }
    void Set(int column, const QByteArray& bytes) {
        Set(column, bytes.constData(), static_cast<std::size_t>(bytes.size()));
    }
    /// As the file has numbers, which is how the machine has them (Bytes.h).
    template <class Number>
    void SetNumber(int column, Number number) {
        Set(column, &number, sizeof number);
    }

private:
    struct Extent {
        bool isThere = false;
        std::uint32_t size = 0;
        std::size_t at = 0;
    };

    Extent& At(int column) { return cells_[static_cast<std::size_t>(column)]; }
    const Extent& At(int column) const { return cells_[static_cast<std::size_t>(column)]; }

    std::vector<Extent> cells_;
    std::vector<std::uint8_t> bytes_;  ///< Longer than what is used of them.
    std::size_t used_ = 0;
};

}  // namespace engine::jet
