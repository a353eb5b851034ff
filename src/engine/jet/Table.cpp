#include "engine/jet/Table.h"

#include "engine/Error.h"
#include "engine/jet/ColumnValue.h"
#include "engine/jet/Damage.h"
#include "engine/jet/LongValues.h"
#include "engine/jet/Text.h"

#include <QUuid>

#include <algorithm>
#include <limits>

namespace engine::jet {

namespace {

// Rows that have moved are found in one hop. More are followed, but not for ever.
constexpr std::size_t MostHops = 16;

// Longer memos are never compressed.
constexpr qsizetype LongestCompressedMemo = 1024;

[[noreturn]] void RaiseDeleted() {
    throw Error(ErrorNumber::RecordDeleted, QStringLiteral("Record is deleted."));
}

[[noreturn]] void RaiseWrongType(const Column& column) {
    throw Error(
        ErrorNumber::WrongType,
        QStringLiteral("Data type conversion error: the field '%1' can't hold this value.").arg(column.name));
}

QByteArray LongBytes(const Column& column, const Value& value) {
    if (column.type == ColumnType::Memo) {
        if (const auto* text = std::get_if<QString>(&value)) {
            return ToStoredText(*text, column.isCompressed && text->size() <= LongestCompressedMemo);
        }
    } else if (const auto* bytes = std::get_if<QByteArray>(&value)) {
        return *bytes;
    }
    RaiseWrongType(column);
}

bool IsNumbered(const Column& column) {
    return column.countsUp && column.type == ColumnType::Long;
}

// As a file has them: the first three parts of an identifier are numbers.
QByteArray NewGuid() {
    QByteArray guid = QUuid::createUuid().toRfc4122();
    std::reverse(guid.begin(), guid.begin() + 4);
    std::reverse(guid.begin() + 4, guid.begin() + 6);
    std::reverse(guid.begin() + 6, guid.begin() + 8);
    return guid;
}

// What is left where a row was: where it is now. The rest of it stays as waste, as the original engine does.
QByteArray Signpost(const Bytes& old, RowPlace to) {
    QByteArray left = old.Copy();
    left.resize(std::max<qsizetype>(left.size(), RowPlaceSize));
    PutRowPlace(ChangeableBytesOf(left, old.OfPage()), 0, to);
    return left;
}

}  // namespace

Table::Table(PageStore& pages, TableLayout layout) : pages_(pages), layout_(std::move(layout)) {
}

std::optional<RowPlace> Table::NextFrom(RowPlace place) const {
    const RowPages rows = Rows();
    for (auto page = rows.FirstPage(place.page); page; page = rows.FirstPage(*page + 1)) {
        const DataPage rowsOfPage = rows.PageOf(*page);
        for (int row = *page == place.page ? place.row : 0; row < rowsOfPage.RowCount(); ++row) {
            const RowState state = rowsOfPage.State(row);
            if (state == RowState::Here || state == RowState::MovedAway) {
                return RowPlace{*page, static_cast<std::uint8_t>(row)};
            }
        }
    }
    return std::nullopt;
}

std::optional<RowPlace> Table::RowBehind(RowPlace key) const {
    return NextFrom(ToRowPlace(ToNumber(key) + 1));
}

Table::Whereabouts Table::Locate(RowPlace key) const {
    const RowPages rows = Rows();
    Whereabouts found{{key}, false};
    if (!rows.Owns(key.page) || key.row >= rows.PageOf(key.page).RowCount()) {
        found.isDeleted = true;
        return found;
    }
    RowState state = rows.PageOf(key.page).State(key.row);
    found.isDeleted = state == RowState::Deleted || state == RowState::MovedHere;
    while (state == RowState::MovedAway) {
        const RowPlace from = found.Last();
        const RowPlace to = ReadRowPlace(rows.PageOf(from.page).Row(from.row), 0);
        state = rows.PageOf(to.page).State(to.row);
        found.trail.push_back(to);
        if (state == RowState::Here || state == RowState::Deleted || found.trail.size() > MostHops) {
            RaiseDamaged(key.page,
                         QStringLiteral("has a row %1 that is said to be at row %2 of page %3, and isn't")
                             .arg(key.row)
                             .arg(to.row)
                             .arg(to.page));
        }
    }
    return found;
}

Table::Whereabouts Table::LocateLive(RowPlace key) const {
    Whereabouts found = Locate(key);
    if (found.isDeleted) {
        RaiseDeleted();
    }
    return found;
}

StoredRow Table::RowAt(RowPlace place) const {
    return {layout_, Rows().PageOf(place.page).Row(place.row)};
}

std::optional<StoredRow> Table::Find(RowPlace key) const {
    const Whereabouts found = Locate(key);
    return found.isDeleted ? std::nullopt : std::optional(RowAt(found.Last()));
}

StoredRow Table::Read(RowPlace key) const {
    return RowAt(LocateLive(key).Last());
}

Value Table::ValueOf(const StoredRow& row, int column) const {
    const Column& known = ColumnAt(column);
    if (!IsLongType(known.type)) {
        return jet::ValueOf(known, row, column);
    }
    if (!row.Has(column)) {
        return Null();
    }
    const QByteArray bytes = LongValues(pages_, known).Read(row.BytesOf(column));
    return known.type == ColumnType::Memo ? Value(StoredText(BytesOf(bytes, layout_.page))) : Value(bytes);
}

Cell Table::CellFor(int column, const Value& value) {
    const Column& known = ColumnAt(column);
    if (!IsLongType(known.type) || IsNull(value)) {
        return ToCell(known, value);
    }
    return LongValues(pages_, known).Write(LongBytes(known, value));
}

void Table::Number(std::vector<Cell>& cells) {
    for (std::size_t place = 0; place < cells.size(); ++place) {
        const Column& column = layout_.columns[place];
        if (column.makesGuids && !cells[place]) {
            cells[place] = NewGuid();
        }
        if (IsNumbered(column)) {
            cells[place] = NextNumber(column, cells[place]);
        }
    }
}

// The next number for a row that has none; one that it has is kept, and counted on from if it is higher.
Cell Table::NextNumber(const Column& column, const Cell& given) {
    TableFigures figures = Figures();
    const std::int32_t last = figures.LastNumber();
    if (!given && last == std::numeric_limits<std::int32_t>::max()) {
        throw Error(ErrorNumber::Other,
                    QStringLiteral("The field '%1' has no further number to give.").arg(column.name));
    }
    const std::int32_t number =
        given ? static_cast<std::int32_t>(BytesOf(*given, layout_.page).U32(0)) : last + 1;
    if (number > last) {
        figures.SetLastNumber(number);
    }
    return given ? given : ToCell(column, qint64{number});
}

StoredRow Table::Compose(const std::vector<Cell>& cells) const {
    const QByteArray row = PutRowTogether(layout_, cells);
    if (row.size() > static_cast<qsizetype>(LongestRow)) {
        throw Error(ErrorNumber::RecordTooLarge,
                    QStringLiteral("Record is too large: %1 bytes, of which a row takes %2.")
                        .arg(row.size())
                        .arg(static_cast<qulonglong>(LongestRow)));
    }
    return {layout_, BytesOf(row, layout_.page)};
}

RowPlace Table::Insert(const std::vector<Value>& values) {
    if (values.size() != layout_.columns.size()) {
        throw Error(ErrorNumber::ValueCountMismatch,
                    QStringLiteral("Number of values (%1) and destination fields (%2) are not the same.")
                        .arg(values.size())
                        .arg(layout_.columns.size()));
    }
    std::vector<Cell> cells;
    for (std::size_t column = 0; column < values.size(); ++column) {
        cells.push_back(CellFor(static_cast<int>(column), values[column]));
    }
    Number(cells);
    const StoredRow row = Compose(cells);
    for (RowObserver* observer : observers_) {
        observer->MayCome(nullptr, row);
    }
    const RowPlace key = Rows().Add(BytesOf(row.Whole(), layout_.page), RowState::Here);
    for (RowObserver* observer : observers_) {
        observer->Came(key, row);
    }
    Figures().SetRows(Figures().Rows() + 1);
    return key;
}

void Table::Update(RowPlace key, const std::vector<CellChange>& changes) {
    const Whereabouts whereabouts = LocateLive(key);
    const StoredRow old = RowAt(whereabouts.Last());
    std::vector<Cell> cells = old.Cells();
    for (const CellChange& change : changes) {
        Cell& cell = cells[static_cast<std::size_t>(change.column)];
        cell = CellFor(change.column, change.value);
        if (cell && IsNumbered(ColumnAt(change.column))) {
            NextNumber(ColumnAt(change.column), cell);
        }
    }
    const StoredRow row = Compose(cells);
    for (RowObserver* observer : observers_) {
        observer->MayCome(&old, row);
    }
    for (RowObserver* observer : observers_) {
        observer->Changed(key, old, row);
    }
    Put(whereabouts, row);
    for (const CellChange& change : changes) {
        FreeLongValue(old, change.column);
    }
}

// Its own place is tried first, so that rows that have moved come back when they can.
void Table::Put(const Whereabouts& old, const StoredRow& row) {
    RowPages rows = Rows();
    const RowPlace key = old.trail.front();
    const Bytes bytes = BytesOf(row.Whole(), layout_.page);
    const bool hasMoved = old.trail.size() > 1;
    if (rows.Replace(key, bytes, RowState::Here)) {
        LeaveTrail(old);
        return;
    }
    if (hasMoved && rows.Replace(old.Last(), bytes, RowState::MovedHere)) {
        return;
    }
    const RowPlace to = rows.Add(bytes, RowState::MovedHere);
    const QByteArray signpost = Signpost(rows.PageOf(key.page).Row(key.row), to);
    if (!rows.Replace(key, BytesOf(signpost, key.page), RowState::MovedAway)) {
        throw Error(ErrorNumber::Other, QStringLiteral("A row of 3 bytes has no room to grow."));
    }
    LeaveTrail(old);
}

// Nobody names the places that a row had moved to before.
void Table::LeaveTrail(const Whereabouts& old) {
    RowPages rows = Rows();
    std::for_each(old.trail.begin() + 1, old.trail.end(), [&rows](RowPlace place) { rows.Delete(place); });
}

void Table::Delete(RowPlace key) {
    const Whereabouts whereabouts = LocateLive(key);
    const StoredRow row = RowAt(whereabouts.Last());
    for (RowObserver* observer : observers_) {
        observer->Goes(key, row);
    }
    for (std::size_t column = 0; column < layout_.columns.size(); ++column) {
        FreeLongValue(row, static_cast<int>(column));
    }
    LeaveTrail(whereabouts);
    Rows().Delete(key);
    TableFigures figures = Figures();
    figures.SetRows(figures.Rows() - std::min(figures.Rows(), 1U));
}

void Table::FreeLongValue(const StoredRow& row, int column) {
    const Column& known = ColumnAt(column);
    if (IsLongType(known.type) && row.Has(column)) {
        LongValues(pages_, known).Free(row.BytesOf(column));
    }
}

void Table::Wipe() {
    Rows().Wipe(RowPages::Keep::OnePage);
    for (const Column& column : layout_.columns) {
        if (IsLongType(column.type)) {
            LongValues(pages_, column).Wipe();
        }
    }
    Figures().SetRows(0);
    for (RowObserver* observer : observers_) {
        observer->AllWent();
    }
}

}  // namespace engine::jet
