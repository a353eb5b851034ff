#include "JetTest.h"
#include "engine/jet/ColumnValue.h"
#include "engine/jet/StoredRow.h"
#include "support/PrintQt.h"

#include <rapidcheck/gtest.h>

#include <limits>

namespace engine::jet {
namespace {

Column MakeColumn(std::uint8_t type, std::uint16_t number, bool isFixed, std::uint16_t place,
                  std::uint16_t size) {
    Column column;
    column.name = QStringLiteral("c%1").arg(number);
    column.type = type;
    column.number = number;
    column.isFixed = isFixed;
    (isFixed ? column.fixedAt : column.variablePlace) = place;
    column.size = size;
    return column;
}

/// Number 0: a fixed long. 1: yes or no. 3: a variable text. 4: a variable long. Number 2 and the variable
/// place 1 are those of a deleted column.
TableLayout MixedLayout() {
    TableLayout layout;
    layout.page = 5;
    layout.rowColumns = 5;
    layout.variableColumns = 3;
    layout.columns = {
        MakeColumn(ColumnType::Long, 0, true, 0, 4), MakeColumn(ColumnType::Boolean, 1, true, 4, 1),
        MakeColumn(ColumnType::Text, 3, false, 0, 20), MakeColumn(ColumnType::Long, 4, false, 2, 4)};
    return layout;
}

const QByteArray MixedRow(
    "\x05\0"
    "\x07\0\0\0"
    "a\0b\0"
    "\xFF\xFF\xFF\xFF"
    "\x0E\0\x0A\0\x0A\0\x06\0\x03\0"
    "\x1B",
    25);

StoredRow RowOf(const TableLayout& layout, const QByteArray& bytes) {
    return {layout, BytesOf(bytes, 12)};
}

RowCells RowCellsOf(const std::vector<Cell>& cells) {
    RowCells made;
    made.Clear(cells.size());
    for (std::size_t column = 0; column < cells.size(); ++column) {
        if (cells[column]) {
            made.Set(static_cast<int>(column), *cells[column]);
        }
    }
    return made;
}

StoredRow MakeRow(const TableLayout& layout, const std::vector<Cell>& cells) {
    StoredRow row;
    RowMaker(layout).Make(layout, RowCellsOf(cells), row);
    return row;
}

QByteArray PutRowTogether(const TableLayout& layout, const std::vector<Cell>& cells) {
    return MakeRow(layout, cells).Whole().Copy();
}

std::vector<Cell> CellsOf(const StoredRow& row) {
    std::vector<Cell> cells;
    for (int column = 0; column < static_cast<int>(row.ColumnCount()); ++column) {
        cells.push_back(row.Has(column) ? Cell(row.BytesOf(column).Copy()) : std::nullopt);
    }
    return cells;
}

Value ValueIn(const TableLayout& layout, const StoredRow& row, int column) {
    return ValueOf(layout.columns[static_cast<std::size_t>(column)], row, column);
}

TEST(JetRow, ARowIsTakenApartByItsNullMaskAndOffsets) {
    const TableLayout layout = MixedLayout();
    const StoredRow row = RowOf(layout, MixedRow);
    EXPECT_EQ(ValueIn(layout, row, 0), Value(qint64{7}));
    EXPECT_EQ(ValueIn(layout, row, 1), Value(true));
    EXPECT_EQ(ValueIn(layout, row, 2), Value(QStringLiteral("ab")));
    EXPECT_EQ(ValueIn(layout, row, 3), Value(qint64{-1}));
}

TEST(JetRow, ARowIsPutTogetherAsItWas) {
    const TableLayout layout = MixedLayout();
    EXPECT_EQ(PutRowTogether(layout, CellsOf(RowOf(layout, MixedRow))), MixedRow);
}

/// The row with another value in one column, if that is put in the place of the old one.
std::optional<QByteArray> Replaced(const StoredRow& old, int column, const Cell& cell) {
    const TableLayout layout = MixedLayout();
    std::vector<Cell> cells(layout.columns.size());
    cells[static_cast<std::size_t>(column)] = cell;
    StoredRow row;
    const bool isReplaced = RowMaker::TryReplace(layout, old, {column}, RowCellsOf(cells), row);
    EXPECT_TRUE(!isReplaced || CellsOf(row)[static_cast<std::size_t>(column)] == cell);
    return isReplaced ? std::optional(row.Whole().Copy()) : std::nullopt;
}

TEST(JetRow, AFixedValueIsReplacedInItsPlaceAndNothingElse) {
    const StoredRow old = RowOf(MixedLayout(), MixedRow);
    QByteArray expected = MixedRow;
    expected.replace(2, 4, "abcd");
    EXPECT_EQ(Replaced(old, 0, QByteArray("abcd")), expected);
    EXPECT_EQ(old.Whole().Copy(), MixedRow);
}

TEST(JetRow, WhatChangesMoreThanBytesIsNotReplacedInItsPlace) {
    const TableLayout layout = MixedLayout();
    const StoredRow old = RowOf(layout, MixedRow);
    EXPECT_EQ(Replaced(old, 0, std::nullopt), std::nullopt) << "null";
    EXPECT_EQ(Replaced(old, 0, QByteArray("ab")), std::nullopt) << "of another length";
    EXPECT_EQ(Replaced(old, 1, QByteArray()), std::nullopt) << "a boolean has no bytes";
    EXPECT_EQ(Replaced(old, 2, QByteArray("c\0d\0", 4)), std::nullopt) << "not fixed";
    EXPECT_EQ(Replaced(MakeRow(layout, std::vector<Cell>(4)), 0, QByteArray("abcd")), std::nullopt)
        << "was null";
}

TEST(JetRow, WithoutItsBitAColumnIsNullAndABooleanIsNo) {
    const TableLayout layout = MixedLayout();
    QByteArray bytes = MixedRow;
    bytes[24] = 0;
    const StoredRow row = RowOf(layout, bytes);
    EXPECT_EQ(ValueIn(layout, row, 0), Value());
    EXPECT_EQ(ValueIn(layout, row, 1), Value(false));
    EXPECT_EQ(ValueIn(layout, row, 2), Value());
}

TEST(JetRow, AnEmptyTextIsNotNull) {
    const TableLayout layout = MixedLayout();
    std::vector<Cell> cells(4);
    cells[2] = QByteArray();
    const StoredRow row = RowOf(layout, PutRowTogether(layout, cells));
    EXPECT_EQ(ValueIn(layout, row, 2), Value(QString()));
    EXPECT_EQ(ValueIn(layout, row, 3), Value());
}

TEST(JetRow, ARowFromBeforeAColumnWasMadeHasNullThere) {
    const TableLayout layout = MixedLayout();
    // Four columns, one of them variable.
    const StoredRow row = RowOf(layout, QByteArray("\x04\0\x07\0\0\0a\0\x08\0\x06\0\x01\0\x0F", 15));
    EXPECT_EQ(ValueIn(layout, row, 0), Value(qint64{7}));
    EXPECT_EQ(ValueIn(layout, row, 2), Value(QStringLiteral("a")));
    EXPECT_EQ(ValueIn(layout, row, 3), Value());
}

TEST(JetRow, AGapBeforeTheOffsetsBelongsToNobody) {
    const TableLayout layout = MixedLayout();
    QByteArray bytes = MixedRow;
    bytes.insert(14, "gap");
    EXPECT_EQ(CellsOf(RowOf(layout, bytes)), CellsOf(RowOf(layout, MixedRow)));
}

TEST(JetRow, MoreColumnsThanTheTableHasAreDamage) {
    QByteArray bytes = MixedRow;
    bytes[0] = 6;
    EXPECT_TRUE(FindsDamage(12, [&] { RowOf(MixedLayout(), bytes); }));
}

TEST(JetRow, AnOffsetOutsideOfTheRowIsDamage) {
    for (const int at : {14, 16, 18, 20}) {
        QByteArray bytes = MixedRow;
        bytes[at] = '\x7F';
        EXPECT_TRUE(FindsDamage(12, [&] { RowOf(MixedLayout(), bytes); })) << at;
        bytes[at] = 0;
        EXPECT_TRUE(FindsDamage(12, [&] { RowOf(MixedLayout(), bytes); })) << at;
    }
}

TEST(JetRow, MoreVariableColumnsThanTheRowHasRoomForAreDamage) {
    QByteArray bytes = MixedRow;
    bytes[23] = '\xFF';
    EXPECT_TRUE(FindsDamage(12, [&] { RowOf(MixedLayout(), bytes); }));
}

TEST(JetRow, NoByteOfARowLeadsAstray) {
    const TableLayout layout = MixedLayout();
    for (qsizetype size = 0; size <= MixedRow.size(); ++size) {
        for (qsizetype at = 0; at < size; ++at) {
            for (const int byte : {0x00, 0x01, 0x06, 0x7F, 0xFF}) {
                QByteArray bytes = MixedRow.left(size);
                bytes[at] = static_cast<char>(byte);
                const Failing failing = FailureOf([&] {
                    const StoredRow row = RowOf(layout, bytes);
                    for (int column = 0; column < 4; ++column) {
                        ValueIn(layout, row, column);
                    }
                });
                EXPECT_TRUE(failing.number == 0 || failing.number == ErrorNumber::DatabaseDamaged);
            }
        }
    }
}

/// A column of a type alone in its row, and what becomes of a value there.
class OneColumn {
public:
    explicit OneColumn(std::uint8_t type, std::uint16_t size, bool isFixed = false) {
        layout.page = 5;
        layout.rowColumns = 1;
        layout.variableColumns = isFixed ? 0 : 1;
        layout.columns = {MakeColumn(type, 0, isFixed, 0, size)};
    }

    Value Stored(const Value& value) const {
        const std::vector<Cell> cells{ToCell(layout.columns[0], value)};
        return ValueIn(layout, RowOf(layout, PutRowTogether(layout, cells)), 0);
    }
    int RefusalOf(const Value& value) const {
        return FailureOf([&] { Stored(value); }).number;
    }
    QByteArray BytesFor(const Value& value) const { return ToCell(layout.columns[0], value).value(); }

    TableLayout layout;
};

TEST(JetValue, NumbersComeBackToTheLimitsOfTheirTypes) {
    const struct {
        std::uint8_t type;
        std::uint16_t size;
        qint64 lowest;
        qint64 highest;
    } types[] = {{ColumnType::Byte, 1, 0, 255},
                 {ColumnType::Short, 2, -32768, 32767},
                 {ColumnType::Long, 4, -2147483648LL, 2147483647}};
    for (const auto& type : types) {
        for (const bool isFixed : {true, false}) {
            const OneColumn column(type.type, type.size, isFixed);
            for (const qint64 number : {type.lowest, qint64{1}, type.highest}) {
                EXPECT_EQ(column.Stored(number), Value(number));
            }
            EXPECT_EQ(column.RefusalOf(type.lowest - 1), ErrorNumber::WrongType);
            EXPECT_EQ(column.RefusalOf(type.highest + 1), ErrorNumber::WrongType);
            EXPECT_EQ(column.RefusalOf(1.5), ErrorNumber::WrongType);
            EXPECT_EQ(column.RefusalOf(QStringLiteral("1")), ErrorNumber::WrongType);
            EXPECT_EQ(column.Stored(Null()), Value());
        }
    }
}

TEST(JetValue, MoneyKeepsItsFourPlaces) {
    const OneColumn column(ColumnType::Currency, 8);
    for (const qint64 scaled : {qint64{0}, qint64{-12345678}, std::numeric_limits<qint64>::max()}) {
        EXPECT_EQ(column.Stored(Currency::FromScaled(scaled)), Value(Currency::FromScaled(scaled)));
    }
    EXPECT_EQ(column.Stored(qint64{3}), Value(Currency::FromScaled(30000)));
    EXPECT_EQ(column.RefusalOf(1e300), ErrorNumber::WrongType);
}

TEST(JetValue, FloatingPointNumbersKeepTheirBits) {
    EXPECT_EQ(OneColumn(ColumnType::Double, 8).Stored(0.1), Value(0.1));
    EXPECT_EQ(OneColumn(ColumnType::Single, 4).Stored(double{0.1F}), Value(double{0.1F}));
    EXPECT_EQ(OneColumn(ColumnType::Single, 4).RefusalOf(1e300), ErrorNumber::WrongType);
}

TEST(JetValue, DatesAreDaysSinceTheEndOf1899) {
    const OneColumn column(ColumnType::DateTime, 8);
    const auto bytes = [](double days) { return QByteArray(reinterpret_cast<const char*>(&days), 8); };
    const QDateTime noon(QDate(2024, 1, 1), QTime(12, 0), Qt::UTC);
    EXPECT_EQ(column.BytesFor(noon), bytes(45292.5));
    EXPECT_EQ(column.Stored(noon), Value(noon));
    const QDateTime early(QDate(1899, 12, 29), QTime(6, 0), Qt::UTC);
    EXPECT_EQ(column.BytesFor(early), bytes(-1.25));
    EXPECT_EQ(column.Stored(early), Value(early));
    for (const QDate day : {QDate(100, 1, 1), QDate(9999, 12, 31)}) {
        EXPECT_EQ(column.Stored(FromDate(day)), FromDate(day));
    }
    EXPECT_EQ(column.RefusalOf(FromDate(QDate(99, 12, 31))), ErrorNumber::WrongType);
    EXPECT_EQ(column.RefusalOf(FromDate(QDate(10000, 1, 1))), ErrorNumber::WrongType);
    EXPECT_EQ(column.RefusalOf(QDateTime()), ErrorNumber::WrongType);
}

TEST(JetValue, ANumberThatIsNoDayIsDamage) {
    const OneColumn column(ColumnType::DateTime, 8);
    for (const double days : {std::numeric_limits<double>::quiet_NaN(), 1e300, -1e300, 2958466.0}) {
        const std::vector<Cell> cells{QByteArray(reinterpret_cast<const char*>(&days), 8)};
        EXPECT_TRUE(FindsDamage(12, [&] {
            ValueIn(column.layout, RowOf(column.layout, PutRowTogether(column.layout, cells)), 0);
        }));
    }
}

TEST(JetValue, ATextTakesAsManyCharactersAsItsColumnSays) {
    OneColumn column(ColumnType::Text, 10);
    for (const bool isCompressed : {false, true}) {
        column.layout.columns[0].isCompressed = isCompressed;
        EXPECT_EQ(column.Stored(QStringLiteral("House")), Value(QStringLiteral("House")));
        EXPECT_EQ(column.Stored(QString()), Value(QString()));
        EXPECT_EQ(column.RefusalOf(QStringLiteral("Houses")), ErrorNumber::FieldTooSmall);
        EXPECT_EQ(column.BytesFor(QStringLiteral("House")).size(), isCompressed ? 7 : 10);
    }
}

TEST(JetValue, AFixedTextIsFilledUpWithBlanks) {
    const OneColumn column(ColumnType::Text, 8, true);
    EXPECT_EQ(column.BytesFor(QStringLiteral("ab")), QByteArray("a\0b\0 \0 \0", 8));
    EXPECT_EQ(column.Stored(QStringLiteral("ab")), Value(QStringLiteral("ab")));
}

TEST(JetValue, OtherTypesAreTheirBytes) {
    EXPECT_EQ(OneColumn(ColumnType::Binary, 5).Stored(QByteArray("abc")), Value(QByteArray("abc")));
    EXPECT_EQ(OneColumn(ColumnType::Binary, 5).RefusalOf(QByteArray("abcdef")), ErrorNumber::FieldTooSmall);
    const QByteArray guid = "0123456789abcdef";
    EXPECT_EQ(OneColumn(ColumnType::Guid, 16, true).Stored(guid), Value(guid));
    EXPECT_EQ(OneColumn(ColumnType::Guid, 16).RefusalOf(guid.left(15)), ErrorNumber::WrongType);
}

TEST(JetValue, ADecimalHasItsHighestWordFirst) {
    QByteArray decimal(17, '\0');
    decimal[13] = '\xD2';
    decimal[14] = '\x04';
    EXPECT_EQ(DecimalText(BytesOf(decimal, 1), 2), QStringLiteral("12.34"));
    EXPECT_EQ(DecimalText(BytesOf(decimal, 1), 6), QStringLiteral("0.001234"));
    decimal[0] = '\x80';
    EXPECT_EQ(DecimalText(BytesOf(decimal, 1), 0), QStringLiteral("-1234"));
    EXPECT_EQ(DecimalText(BytesOf(QByteArray(17, '\0'), 1), 0), QStringLiteral("0"));
    decimal = QByteArray(17, '\xFF');
    decimal[0] = 0;
    EXPECT_EQ(DecimalText(BytesOf(decimal, 1), 0), QStringLiteral("340282366920938463463374607431768211455"));
}

RC_GTEST_PROP(JetRowProperty, EveryRowComesBack, ()) {
    const TableLayout layout = MixedLayout();
    std::vector<Cell> cells(4);
    if (*rc::gen::arbitrary<bool>()) {
        cells[0] = QByteArray(4, 'x');
    }
    if (*rc::gen::arbitrary<bool>()) {
        cells[1] = QByteArray();
    }
    if (*rc::gen::arbitrary<bool>()) {
        cells[2] = QByteArray(2 * *rc::gen::inRange(0, 2000), 't');
    }
    if (*rc::gen::arbitrary<bool>()) {
        cells[3] = QByteArray(4, 'y');
    }
    RC_ASSERT(CellsOf(MakeRow(layout, cells)) == cells);
    RC_ASSERT(CellsOf(RowOf(layout, PutRowTogether(layout, cells))) == cells);
}

}  // namespace
}  // namespace engine::jet
