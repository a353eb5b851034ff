#include "engine/Error.h"
#include "engine/jet/ColumnValue.h"
#include "engine/jet/sql/QuickValue.h"
#include "engine/jet/sql/SqlValue.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>

namespace engine::jet {
namespace {

constexpr std::array Types{ColumnType::Boolean, ColumnType::Byte,     ColumnType::Short,
                           ColumnType::Long,    ColumnType::Currency, ColumnType::Single,
                           ColumnType::Double,  ColumnType::DateTime, ColumnType::Text};

TableLayout LayoutOf(std::uint8_t type, bool isCompressed = true) {
    constexpr std::size_t BytesOfText = 40;
    TableLayout layout;
    layout.rowColumns = 1;
    Column column;
    column.type = type;
    column.isCompressed = isCompressed;
    column.isFixed = type != ColumnType::Text;
    column.size = static_cast<std::uint16_t>(type == ColumnType::Text ? BytesOfText : SizeOfType(type));
    layout.variableColumns = type == ColumnType::Text ? 1 : 0;
    layout.columns = {column};
    return layout;
}

// Runs a routine inside a statement, where SQLite has values and takes results.
class Sqlite {
public:
    using Routine = std::function<void(sqlite3_context*, sqlite3_value*)>;

    Sqlite() {
        sqlite3_open(":memory:", &handle_);
        sqlite3_create_function(handle_, "run", 1, SQLITE_UTF8, this, Run, nullptr, nullptr);
    }
    Sqlite(const Sqlite&) = delete;
    Sqlite& operator=(const Sqlite&) = delete;
    ~Sqlite() { sqlite3_close(handle_); }

    // What SQLite writes for the result, its type included.
    std::string ResultOf(const std::string& value, Routine routine) {
        routine_ = std::move(routine);
        std::string result;
        const std::string sql =
            "select typeof(r) || ' ' || quote(r) from (select run(" + value + ") as r limit 1)";
        const auto take = [](void* into, int, char** texts, char**) {
            *static_cast<std::string*>(into) = texts[0];
            return 0;
        };
        EXPECT_EQ(sqlite3_exec(handle_, sql.c_str(), take, &result, nullptr), SQLITE_OK) << sql;
        return result;
    }
    void With(const std::string& value, Routine routine) { ResultOf(value, std::move(routine)); }

private:
    static void Run(sqlite3_context* context, int /*count*/, sqlite3_value** values) {
        static_cast<Sqlite*>(sqlite3_user_data(context))->routine_(context, values[0]);
    }

    sqlite3* handle_ = nullptr;
    Routine routine_;
};

class JetQuickValue : public ::testing::Test {
protected:
    // Whether the value went straight into the row. Then its bytes must be those of the long way.
    bool PutsQuickly(const TableLayout& layout, const std::string& value) {
        bool isQuick = false;
        sqlite_.With(value, [&](sqlite3_context*, sqlite3_value* given) {
            const Column& column = layout.columns.front();
            RowCells cells;
            cells.Clear(1);
            isQuick = PutQuickly(cells, 0, column, given);
            if (isQuick) {
                const Cell quick = cells.Has(0) ? Cell(cells.BytesOf(0).Copy()) : std::nullopt;
                EXPECT_EQ(quick, ToCell(column, FromSql(column, given))) << value << " type " << column.type;
            }
        });
        return isQuick;
    }
    bool PutsQuickly(std::uint8_t type, const std::string& value) {
        return PutsQuickly(LayoutOf(type), value);
    }

    // The same for bytes of a row, and what a statement gets of them.
    bool GivesQuickly(const TableLayout& layout, const std::optional<QByteArray>& bytes) {
        const Column& column = layout.columns.front();
        RowCells cells;
        cells.Clear(1);
        if (bytes) {
            cells.Set(0, *bytes);
        }
        StoredRow row;
        RowMaker(layout).Make(layout, cells, row);
        bool isQuick = false;
        const std::string quick = sqlite_.ResultOf("0", [&](sqlite3_context* context, sqlite3_value*) {
            isQuick = GiveQuickly(context, column, row, 0);
        });
        if (isQuick) {
            EXPECT_EQ(quick, sqlite_.ResultOf("0", [&](sqlite3_context* context, sqlite3_value*) {
                GiveToSql(context, ToSqlColumn(column), ValueOf(column, row, 0));
            })) << bytes.value_or("null").toHex().toStdString();
        }
        return isQuick;
    }
    template <class Number>
    bool GivesNumberQuickly(std::uint8_t type, Number number) {
        return GivesQuickly(LayoutOf(type),
                            QByteArray(reinterpret_cast<const char*>(&number), sizeof number));
    }

private:
    Sqlite sqlite_;
};

TEST_F(JetQuickValue, UsualValuesGoStraightIntoTheRow) {
    EXPECT_TRUE(PutsQuickly(ColumnType::Boolean, "-1"));
    EXPECT_TRUE(PutsQuickly(ColumnType::Boolean, "0"));
    EXPECT_TRUE(PutsQuickly(ColumnType::Byte, "255"));
    EXPECT_TRUE(PutsQuickly(ColumnType::Short, "-32768"));
    EXPECT_TRUE(PutsQuickly(ColumnType::Long, "2147483647"));
    EXPECT_TRUE(PutsQuickly(ColumnType::Currency, "-12.345"));
    EXPECT_TRUE(PutsQuickly(ColumnType::Currency, "922337203685477"));
    EXPECT_TRUE(PutsQuickly(ColumnType::Double, "0.1"));
    EXPECT_TRUE(PutsQuickly(ColumnType::Double, "7"));
    EXPECT_TRUE(PutsQuickly(ColumnType::DateTime, "'2024-02-29'"));
    EXPECT_TRUE(PutsQuickly(ColumnType::DateTime, "'1000-01-01'"));
    EXPECT_TRUE(PutsQuickly(ColumnType::Text, "'abc'"));
    EXPECT_TRUE(PutsQuickly(ColumnType::Text, "'ab'"));
    EXPECT_TRUE(PutsQuickly(ColumnType::Text, "''"));
    EXPECT_TRUE(PutsQuickly(ColumnType::Text, "null"));
}

TEST_F(JetQuickValue, UnusualValuesGoTheLongWay) {
    EXPECT_FALSE(PutsQuickly(ColumnType::Byte, "256"));
    EXPECT_FALSE(PutsQuickly(ColumnType::Byte, "-1"));
    EXPECT_FALSE(PutsQuickly(ColumnType::Short, "32768"));
    EXPECT_FALSE(PutsQuickly(ColumnType::Long, "-2147483649"));
    EXPECT_FALSE(PutsQuickly(ColumnType::Long, "'7'"));
    EXPECT_FALSE(PutsQuickly(ColumnType::Currency, "922337203685478"));
    EXPECT_FALSE(PutsQuickly(ColumnType::Currency, "1e12"));
    EXPECT_FALSE(PutsQuickly(ColumnType::Boolean, "'yes'"));
    for (const char* day :
         {"'2023-02-29'", "'0999-12-31'", "'2024-00-01'", "'2024-13-01'", "'2024-01-32'", "''",
          "'2024/01/01'", "'2024-1-01 '", "'20a4-01-01'", "'2024-01-01 10:00:00'", "2024.0"}) {
        EXPECT_FALSE(PutsQuickly(ColumnType::DateTime, day)) << day;
    }
    for (const char* text : {"'caf\xC3\xA9'", "'123456789012345678901'", "char(97,98,0,99)", "123"}) {
        EXPECT_FALSE(PutsQuickly(ColumnType::Text, text)) << text;
    }
    EXPECT_FALSE(PutsQuickly(LayoutOf(ColumnType::Text, false), "'abc'"));
    EXPECT_FALSE(PutsQuickly(ColumnType::Memo, "'abc'"));
}

TEST_F(JetQuickValue, AnyValueHasTheBytesOfTheLongWay) {
    std::mt19937 random(7);
    const auto below = [&random](int limit) {
        return static_cast<int>(random() % static_cast<unsigned>(limit));
    };
    int quick = 0;
    for (int round = 0; round < 20000; ++round) {
        std::string value;
        switch (below(5)) {
            case 0:
                value = std::to_string(static_cast<qint32>(random()) >> below(31));
                break;
            case 1:
                value = std::to_string(static_cast<qint32>(random()) / 4) + "e-" + std::to_string(below(9));
                break;
            case 2:
                value = QStringLiteral("'%1-%2-%3'")
                            .arg(below(10000), 4, 10, QLatin1Char('0'))
                            .arg(below(14), 2, 10, QLatin1Char('0'))
                            .arg(below(33), 2, 10, QLatin1Char('0'))
                            .toStdString();
                break;
            case 3:
                value = "'";
                for (int length = below(20); length > 0; --length) {
                    value += static_cast<char>('A' + below(58));
                }
                value += below(4) == 0 ? "\xC3\xA9'" : "'";
                break;
            default:
                value = "null";
        }
        for (const std::uint8_t type : Types) {
            quick += PutsQuickly(type, value) ? 1 : 0;
        }
    }
    EXPECT_GT(quick, 20000);
}

TEST_F(JetQuickValue, UsualBytesGoStraightToAStatement) {
    for (const std::uint8_t type : Types) {
        EXPECT_TRUE(GivesQuickly(LayoutOf(type), std::nullopt));
    }
    EXPECT_TRUE(GivesQuickly(LayoutOf(ColumnType::Boolean), QByteArray()));
    EXPECT_TRUE(GivesNumberQuickly(ColumnType::Byte, std::uint8_t{200}));
    EXPECT_TRUE(GivesNumberQuickly(ColumnType::Short, std::int16_t{-2}));
    EXPECT_TRUE(GivesNumberQuickly(ColumnType::Long, std::int32_t{-70000}));
    EXPECT_TRUE(GivesNumberQuickly(ColumnType::Currency, std::int64_t{-123400}));
    EXPECT_TRUE(GivesNumberQuickly(ColumnType::Currency, std::int64_t{120000}));
    EXPECT_TRUE(GivesNumberQuickly(ColumnType::Double, 0.1));
    EXPECT_TRUE(GivesNumberQuickly(ColumnType::DateTime, 45000.0));
    EXPECT_TRUE(GivesNumberQuickly(ColumnType::DateTime, -328716.0));
    EXPECT_TRUE(GivesNumberQuickly(ColumnType::DateTime, 2958465.0));
    EXPECT_TRUE(GivesQuickly(LayoutOf(ColumnType::Text), QByteArrayLiteral("\xFF\xFE"
                                                                           "abc")));
}

TEST_F(JetQuickValue, UnusualBytesGoTheLongWay) {
    EXPECT_FALSE(GivesNumberQuickly(ColumnType::Double, std::numeric_limits<double>::infinity()));
    EXPECT_FALSE(GivesNumberQuickly(ColumnType::DateTime, std::numeric_limits<double>::quiet_NaN()));
    EXPECT_FALSE(GivesNumberQuickly(ColumnType::DateTime, 45000.5));
    EXPECT_FALSE(GivesNumberQuickly(ColumnType::DateTime, -328717.0));
    EXPECT_FALSE(GivesNumberQuickly(ColumnType::DateTime, 2958466.0));
    const TableLayout text = LayoutOf(ColumnType::Text);
    EXPECT_FALSE(GivesQuickly(text, QByteArrayLiteral("a\0b\0")));
    EXPECT_FALSE(GivesQuickly(text, QByteArrayLiteral("\xFF\xFE"
                                                      "caf\xE9")));
    EXPECT_FALSE(GivesQuickly(text, QByteArrayLiteral("\xFF\xFE"
                                                      "ab\0\x20\x20\0c")));
    EXPECT_FALSE(GivesQuickly(text, "\xFF\xFE" + QByteArray(21, 'a')));
}

TEST_F(JetQuickValue, AnyBytesGiveWhatTheLongWayGives) {
    std::mt19937 random(11);
    for (int round = 0; round < 5000; ++round) {
        EXPECT_TRUE(GivesNumberQuickly(ColumnType::DateTime,
                                       static_cast<double>(static_cast<int>(random() % 3287181) - 328716)));
        EXPECT_TRUE(GivesNumberQuickly(ColumnType::Currency, static_cast<qint64>(random()) - 2000000000));
        EXPECT_TRUE(GivesNumberQuickly(ColumnType::Long, static_cast<qint32>(random())));
        EXPECT_TRUE(GivesNumberQuickly(ColumnType::Short, static_cast<qint16>(random())));
    }
}

}  // namespace
}  // namespace engine::jet
