#include "engine/jet/LongValues.h"

#include "engine/Error.h"
#include "engine/jet/Damage.h"

#include <algorithm>
#include <set>

namespace engine::jet {

namespace {

constexpr std::size_t ReferenceSize = 12;
constexpr std::size_t PlaceAt = 4;
constexpr std::uint32_t LengthBits = 0x3FFFFFFF;
constexpr std::uint32_t KindBits = 0xC0000000;
constexpr std::uint32_t InRow = 0x80000000;
constexpr std::uint32_t OnePiece = 0x40000000;
constexpr std::uint32_t Chain = 0;

// The longest piece that the original engine has been seen to write alone; longer values are chains.
constexpr qsizetype LongestOnePiece = 3630;
constexpr qsizetype LongestOfChain = 4072;

QByteArray Reference(std::uint32_t kind, qsizetype length, RowPlace place) {
    QByteArray reference(ReferenceSize, '\0');
    ChangeableBytes bytes = ChangeableBytesOf(reference, 0);
    bytes.Put32(0, kind | static_cast<std::uint32_t>(length));
    PutRowPlace(bytes, PlaceAt, place);
    return reference;
}

}  // namespace

LongValues::LongValues(PageStore& pages, const Column& column) : pages_(pages), column_(column) {
}

RowPages LongValues::Pages() const {
    if (column_.longPages.page == 0) {
        throw Error(ErrorNumber::InvalidOperation,
                    QStringLiteral("Invalid operation: the column '%1' has no pages for long values.")
                        .arg(column_.name));
    }
    return {pages_, PageOwner::LongValues, column_.longPages, column_.longPagesWithRoom};
}

LongValues::Piece LongValues::PieceAt(RowPlace place, bool isChain) const {
    const DataPage page(pages_.Read(place.page), place.page, PageOwner::LongValues);
    if (page.State(place.row) != RowState::Here) {
        RaiseDamaged(
            place.page,
            QStringLiteral("has a piece of a long value in row %1, which is deleted").arg(place.row));
    }
    const Bytes row = page.Row(place.row);
    if (!isChain) {
        return {place, {}, row};
    }
    return {place, ReadRowPlace(row, 0), row.From(RowPlaceSize)};
}

// No piece is met twice, so that a circle has an end.
std::vector<LongValues::Piece> LongValues::PiecesOf(const Bytes& reference) const {
    std::vector<Piece> pieces;
    const std::uint32_t kind = reference.U32(0) & KindBits;
    if (kind == InRow) {
        return pieces;
    }
    std::size_t left = reference.U32(0) & LengthBits;
    RowPlace next = ReadRowPlace(reference, PlaceAt);
    std::set<RowPlace> met;
    while (left > 0) {
        const Piece piece = PieceAt(next, kind == Chain);
        if (!met.insert(next).second || (kind != Chain && piece.bytes.Size() < left)) {
            RaiseDamaged(next.page, QStringLiteral("has a long value that ends %1 bytes too early")
                                        .arg(static_cast<qulonglong>(left)));
        }
        left -= std::min(left, piece.bytes.Size());
        next = piece.next;
        pieces.push_back(piece);
    }
    return pieces;
}

QByteArray LongValues::Read(const Bytes& reference) const {
    const std::uint32_t head = reference.U32(0);
    const std::size_t length = head & LengthBits;
    if ((head & KindBits) == InRow) {
        return reference.Part(ReferenceSize, length).Copy();
    }
    QByteArray value;
    for (const Piece& piece : PiecesOf(reference)) {
        const std::size_t left = length - static_cast<std::size_t>(value.size());
        value += piece.bytes.Part(0, std::min(left, piece.bytes.Size())).Copy();
    }
    return value;
}

QByteArray LongValues::Write(const QByteArray& value) {
    if (value.size() > static_cast<qsizetype>(LengthBits)) {
        throw Error(ErrorNumber::FieldTooSmall,
                    QStringLiteral("The field '%1' is too small to accept the amount of data: %2 bytes.")
                        .arg(column_.name)
                        .arg(value.size()));
    }
    if (value.size() <= LongestInRow) {
        return Reference(InRow, value.size(), {}) + value;
    }
    if (value.size() <= LongestOnePiece) {
        return Reference(OnePiece, value.size(), Pages().Add(BytesOf(value, 0), RowState::Here));
    }
    return WriteChain(value);
}

// From its end, since each piece names the one behind it.
QByteArray LongValues::WriteChain(const QByteArray& value) {
    RowPages pages = Pages();
    RowPlace next;
    qsizetype at = (value.size() - 1) / LongestOfChain * LongestOfChain;
    for (; at >= 0; at -= LongestOfChain) {
        QByteArray piece(RowPlaceSize, '\0');
        PutRowPlace(ChangeableBytesOf(piece, 0), 0, next);
        piece += value.mid(at, LongestOfChain);
        next = pages.Add(BytesOf(piece, 0), RowState::Here);
    }
    return Reference(Chain, value.size(), next);
}

void LongValues::Free(const Bytes& reference) {
    const std::vector<Piece> pieces = PiecesOf(reference);
    if (pieces.empty()) {
        return;
    }
    RowPages pages = Pages();
    for (const Piece& piece : pieces) {
        pages.Delete(piece.place);
        pages.GiveBackIfEmpty(piece.place.page);
    }
}

void LongValues::Wipe() {
    if (column_.longPages.page != 0) {
        Pages().Wipe(RowPages::Keep::NoPage);
    }
}

}  // namespace engine::jet
