#pragma once

#include "engine/jet/RowPages.h"
#include "engine/jet/TableLayout.h"

#include <QByteArray>

namespace engine::jet {

/// The long values of one column: memos and long binaries. A row has a reference of 12 bytes to each; the
/// bytes of a short value lie right behind it, those of longer ones on pages of their own, in one piece or
/// in a chain of several.
class LongValues {
public:
    /// `column` must outlive this.
    LongValues(PageStore& pages, const Column& column);

    /// The bytes of the value that a row refers to. Fails with DatabaseDamaged for a chain that runs in a
    /// circle, ends too early, or leads to pages of another kind.
    QByteArray Read(const Bytes& reference) const;

    /// Stores a value and gives what the row is to hold. Fails with 3163 for a value longer than a length
    /// can tell, and with 3219 if the column has no pages for long values.
    QByteArray Write(const QByteArray& value);

    /// Takes the bytes of a value out of their pages. Read before it was sure that the row goes, a damaged
    /// chain fails as in Read.
    void Free(const Bytes& reference);

    /// Gives all pages back.
    void Wipe();

    /// The longest value that lies in the row itself.
    static constexpr qsizetype LongestInRow = 52;

private:
    struct Piece {
        RowPlace place;
        RowPlace next;
        Bytes bytes;
    };

    Piece PieceAt(RowPlace place, bool isChain) const;
    std::vector<Piece> PiecesOf(const Bytes& reference) const;
    RowPages Pages() const;
    QByteArray WriteChain(const QByteArray& value);

    PageStore& pages_;
    const Column& column_;
};

}  // namespace engine::jet
