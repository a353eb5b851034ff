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

QByteArray LongBytes(const Column& column, const Value& value) {
    if (column.type == ColumnType::Memo) {
        if (const auto* text = std::get_if<QString>(&value)) {
            return ToStoredText(*text, column.isCompressed && text->size() <= LongestCompressedMemo);
        }
    } else if (const auto* bytes = std::get_if<QByteArray>(&value)) {
        return *bytes;
    }
    RaiseWrongType(column.name);
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

Table::Table(PageStore& pages, TableLayout layout)
    : pages_(pages),
      layout_(std::move(layout)),
      rows_(pages_, layout_.page, layout_.pages, layout_.pagesWithRoom),
      maker_(layout_) {
    for (int place = 0; place < static_cast<int>(layout_.columns.size()); ++place) {
        if (ColumnAt(place).makesGuids || IsNumbered(ColumnAt(place))) {
            numbered_.push_back(place);
        }
    }
}

std::optional<RowPlace> Table::NextFrom(RowPlace place) const {
    for (auto page = rows_.FirstPage(place.page); page; page = rows_.FirstPage(*page + 1)) {
        if (const auto found = NextOfPage(*page == place.page ? place : RowPlace{*page, 0})) {
            return found;
        }
    }
    return std::nullopt;
}

std::optional<RowPlace> Table::NextOfPage(RowPlace place) const {
    const DataPage page = rows_.PageOf(place.page);
    for (int row = place.row; row < page.RowCount(); ++row) {
        const RowState state = page.State(row);
        if (state == RowState::Here || state == RowState::MovedAway) {
            return RowPlace{place.page, static_cast<std::uint8_t>(row)};
        }
    }
    return std::nullopt;
}

std::optional<RowPlace> Table::RowBehind(RowPlace key) const {
    return NextFrom(ToRowPlace(ToNumber(key) + 1));
}

Table::Whereabouts Table::Locate(RowPlace key) const {
    Whereabouts found{key, key, {}, false};
    if (!rows_.Owns(key.page)) {
        found.isDeleted = true;
        return found;
    }
    const DataPage page = rows_.PageOf(key.page);
    RowState state = key.row < page.RowCount() ? page.State(key.row) : RowState::Deleted;
    found.isDeleted = state == RowState::Deleted || state == RowState::MovedHere;
    while (state == RowState::MovedAway) {
        const RowPlace from = found.last;
        const RowPlace to = ReadRowPlace(rows_.PageOf(from.page).Row(from.row), 0);
        state = rows_.PageOf(to.page).State(to.row);
        found.last = to;
        found.moves.push_back(to);
        if (state == RowState::Here || state == RowState::Deleted || found.moves.size() >= MostHops) {
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

std::optional<StoredRow> Table::Find(RowPlace key) const {
    const Whereabouts found = Locate(key);
    return found.isDeleted ? std::nullopt
                           : std::optional<StoredRow>(std::in_place, layout_, BytesAt(found.last));
}

bool Table::Find(RowPlace key, StoredRow& into) const {
    const Whereabouts found = Locate(key);
    if (!found.isDeleted) {
        into.TakeWhole(layout_, BytesAt(found.last));
    }
    return !found.isDeleted;
}

StoredRow Table::Read(RowPlace key) const {
    return {layout_, BytesAt(LocateLive(key).last)};
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

void Table::PutCell(RowCells& cells, int column, const Value& value) {
    const Column& known = ColumnAt(column);
    const Cell cell = IsLongType(known.type) && !IsNull(value)
                          ? LongValues(pages_, known).Write(LongBytes(known, value))
                          : ToCell(known, value);
    if (cell) {
        cells.Set(column, *cell);
    } else {
        cells.SetNull(column);
    }
}

void Table::Number(RowCells& cells) {
    for (const int place : numbered_) {
        const Column& column = ColumnAt(place);
        if (column.makesGuids && !cells.Has(place)) {
            cells.Set(place, NewGuid());
        }
        if (IsNumbered(column)) {
            PutNextNumber(cells, place);
        }
    }
}

// The next number for a row that has none; one that it has is kept, and counted on from if it is higher.
void Table::PutNextNumber(RowCells& cells, int column) {
    TableFigures figures = Figures();
    const std::int32_t last = figures.LastNumber();
    const bool isGiven = cells.Has(column);
    if (!isGiven && last == std::numeric_limits<std::int32_t>::max()) {
        throw Error(
            ErrorNumber::Other,
            QStringLiteral("The field '%1' has no further number to give.").arg(ColumnAt(column).name));
    }
    const std::int32_t number = isGiven ? static_cast<std::int32_t>(cells.BytesOf(column).U32(0)) : last + 1;
    if (number > last) {
        figures.SetLastNumber(number);
    }
    if (!isGiven) {
        cells.SetNumber(column, number);
    }
}

void Table::Compose(const RowCells& cells) {
    maker_.Make(layout_, cells, made_);
    const Bytes row = made_.Whole();
    if (row.Size() > LongestRow) {
        throw Error(ErrorNumber::RecordTooLarge,
                    QStringLiteral("Record is too large: %1 bytes, of which a row takes %2.")
                        .arg(static_cast<qulonglong>(row.Size()))
                        .arg(static_cast<qulonglong>(LongestRow)));
    }
}

RowPlace Table::Insert(const std::vector<Value>& values) {
    if (values.size() != layout_.columns.size()) {
        throw Error(ErrorNumber::ValueCountMismatch,
                    QStringLiteral("Number of values (%1) and destination fields (%2) are not the same.")
                        .arg(values.size())
                        .arg(layout_.columns.size()));
    }
    RowCells cells;
    cells.Clear(values.size());
    for (std::size_t column = 0; column < values.size(); ++column) {
        PutCell(cells, static_cast<int>(column), values[column]);
    }
    return Insert(cells);
}

RowPlace Table::Insert(RowCells& cells) {
    Number(cells);
    Compose(cells);
    for (RowObserver* observer : observers_) {
        observer->MayCome(nullptr, made_);
    }
    const RowPlace key = rows_.Add(made_.Whole(), RowState::Here);
    for (RowObserver* observer : observers_) {
        observer->Came(key, made_);
    }
    TableFigures figures = Figures();
    figures.SetRows(figures.Rows() + 1);
    return key;
}

// Of the old row, with these columns changed.
void Table::ComposeChanged(const std::vector<int>& columns, const RowCells& changed) {
    const bool isAnyNumbered = std::any_of(columns.begin(), columns.end(),
                                           [this](int column) { return IsNumbered(ColumnAt(column)); });
    if (!isAnyNumbered && RowMaker::TryReplace(layout_, old_, columns, changed, made_)) {
        return;
    }
    cells_.Clear(layout_.columns.size());
    for (int column = 0; column < static_cast<int>(cells_.Count()); ++column) {
        if (std::find(columns.begin(), columns.end(), column) != columns.end()) {
            if (changed.Has(column)) {
                cells_.Set(column, changed.BytesOf(column));
            }
        } else if (old_.Has(column)) {
            cells_.Set(column, old_.BytesOf(column));
        }
    }
    for (const int column : columns) {
        if (cells_.Has(column) && IsNumbered(ColumnAt(column))) {
            PutNextNumber(cells_, column);
        }
    }
    Compose(cells_);
}

void Table::Update(RowPlace key, const std::vector<CellChange>& changes) {
    RowCells changed;
    changed.Clear(layout_.columns.size());
    std::vector<int> columns;
    LocateLive(key);
    for (const CellChange& change : changes) {
        PutCell(changed, change.column, change.value);
        columns.push_back(change.column);
    }
    Update(key, columns, changed);
}

void Table::Update(RowPlace key, const std::vector<int>& columns, const RowCells& changed) {
    const Whereabouts whereabouts = LocateLive(key);
    old_.TakeApart(layout_, BytesAt(whereabouts.last));
    ComposeChanged(columns, changed);
    for (RowObserver* observer : observers_) {
        observer->MayCome(&old_, made_);
    }
    for (RowObserver* observer : observers_) {
        observer->Changed(key, old_, made_);
    }
    Put(whereabouts, made_.Whole());
    for (const int column : columns) {
        FreeLongValue(old_, column);
    }
}

// Its own place is tried first, so that rows that have moved come back when they can.
void Table::Put(const Whereabouts& old, const Bytes& row) {
    const RowPlace key = old.key;
    if (rows_.Replace(key, row, RowState::Here)) {
        LeaveTrail(old);
        return;
    }
    if (!old.moves.empty() && rows_.Replace(old.last, row, RowState::MovedHere)) {
        return;
    }
    const RowPlace to = rows_.Add(row, RowState::MovedHere);
    const QByteArray signpost = Signpost(rows_.PageOf(key.page).Row(key.row), to);
    if (!rows_.Replace(key, BytesOf(signpost, key.page), RowState::MovedAway)) {
        throw Error(ErrorNumber::Other, QStringLiteral("A row of 3 bytes has no room to grow."));
    }
    LeaveTrail(old);
}

// Nobody names the places that a row had moved to before.
void Table::LeaveTrail(const Whereabouts& old) {
    std::for_each(old.moves.begin(), old.moves.end(), [this](RowPlace place) { rows_.Delete(place); });
}

void Table::Delete(RowPlace key) {
    const Whereabouts whereabouts = LocateLive(key);
    const StoredRow row(layout_, BytesAt(whereabouts.last));
    for (RowObserver* observer : observers_) {
        observer->Goes(key, row);
    }
    for (std::size_t column = 0; column < layout_.columns.size(); ++column) {
        FreeLongValue(row, static_cast<int>(column));
    }
    LeaveTrail(whereabouts);
    rows_.Delete(key);
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
    rows_.Wipe(RowPages::Keep::OnePage);
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
