#pragma once

#include <QString>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace engine::dialect {

enum class StatementKind { Delete, Insert, Select, Update };

/// One item of a select list: a column under a name of its own, or a literal.
struct SelectItem {
    std::string column;  ///< Empty for a literal.
    std::string alias;   ///< Empty if the column keeps its name.
};

/// One column that the rows of a select are sorted by.
struct SortColumn {
    std::string column;
    bool descending = false;
};

/// What a statement of the dialect says, with names without their brackets and texts as SQL with quoted
/// names.
struct ParsedStatement {
    StatementKind kind = StatementKind::Select;
    std::string table;  ///< The table written, or the one that a select reads.

    /// The whole statement as SQL. "?" stands for a literal, in the order of the shape.
    std::string sql;

    /// For the literal at each place: the column of `table` that it will be stored in, or empty if it is only
    /// compared with something.
    std::vector<std::string> storedIn;

    /// Where in `sql` the list of values of an insert begins; 0 in other statements.
    size_t valuesBegin = 0;

    /// The table whose rows an insert copies, or empty.
    std::string sourceTable;

    /// The columns that are named: those written, of `table`, and those read, of `sourceTable` if there is
    /// one and otherwise of `table`.
    std::vector<std::string> columnsWritten;
    std::vector<std::string> columnsRead;

    /// Of a select: its items (none means all columns), and what follows the table.
    std::vector<SelectItem> items;
    std::string itemsSql;
    std::string whereSql;    ///< " where …", or empty.
    std::string orderBySql;  ///< " order by …", or empty.
    std::vector<SortColumn> orderBy;
};

/// Reads the shape of one statement (see Tokenizer.h). The dialect is what the applications on this database
/// speak:
///
///   delete from T [where C]
///   update T set column = V, … [where C]
///   insert into T (columns) values (V, …)
///   insert into T (columns) select I, … from T [where C]
///   select * | I, … from T [where C] [order by column [asc | desc], …]
///
/// V is a literal, true, false or null; I is V or a column, either with "as name"; C compares columns with
/// literals or columns, joined by and, or and parentheses, or tests "is [not] null". Nothing else is let
/// through to the database, so that a text that breaks out of its quotes can at worst make its own statement
/// fail.
///
/// Fails with engine error 3075, or 3346 when an insert has more or fewer values than columns.
ParsedStatement Parse(std::string_view shape);

}  // namespace engine::dialect
