#include "engine/dialect/Grammar.h"

#include "engine/Error.h"
#include "engine/dialect/Names.h"

#include <QByteArray>

#include <algorithm>

namespace engine::dialect {

namespace {

// Deeper conditions than any person writes would only serve to exhaust the stack.
constexpr int DeepestCondition = 50;

// What a file declares must not decide what is written: "on conflict ignore" would lose a row without a word
// (the "or abort" of each statement overrides it), and "collate nocase" would find the rows of another
// tenant.
constexpr const char* Exactly = " collate binary";

// The rows that a column's value picks out are few. SQLite would believe the statistics in a file, and go
// through all rows each time, if they are false or of a time when there was one tenant.
constexpr const char* Seldom = ", 0.0001)";

bool IsNameCharacter(char character) {
    const auto byte = static_cast<unsigned char>(character);
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || (byte >= '0' && byte <= '9') ||
           byte == '_' || byte >= 0x80;
}

struct Token {
    enum class Kind { End, Name, BracketedName, Literal, Symbol };
    Kind kind = Kind::End;
    std::string text;     // A name without its brackets, or the symbol.
    std::string keyword;  // A bare name in lower case.
};

class Parser {
public:
    explicit Parser(std::string_view shape) : shape_(shape) { Advance(); }

    ParsedStatement Run() {
        if (TakeKeyword("delete")) {
            ParseDelete();
        } else if (TakeKeyword("update")) {
            ParseUpdate();
        } else if (TakeKeyword("insert")) {
            ParseInsert();
        } else if (TakeKeyword("select")) {
            ParseSelect();
        } else {
            RaiseSyntax("expected delete, insert, select or update");
        }
        if (token_.kind != Token::Kind::End) {
            RaiseSyntax("unexpected text");
        }
        return std::move(statement_);
    }

private:
    // --- Tokens of a shape ---

    void Advance() {
        while (place_ < shape_.size() && shape_[place_] == ' ') {
            ++place_;
        }
        begin_ = place_;
        token_ = Token();
        if (place_ >= shape_.size()) {
            return;
        }
        if (shape_[place_] == '?') {
            token_ = {Token::Kind::Literal, "?", {}};
            ++place_;
        } else if (shape_[place_] == '[') {
            const size_t end = shape_.find(']', place_);
            token_ = {
                Token::Kind::BracketedName, std::string(shape_.substr(place_ + 1, end - place_ - 1)), {}};
            place_ = end + 1;
        } else if (IsNameCharacter(shape_[place_])) {
            const size_t begin = place_;
            while (place_ < shape_.size() && IsNameCharacter(shape_[place_])) {
                ++place_;
            }
            token_ = {Token::Kind::Name, std::string(shape_.substr(begin, place_ - begin)), {}};
            token_.keyword = LowerCase(token_.text);
        } else {
            token_ = {Token::Kind::Symbol, std::string(1, shape_[place_]), {}};
            ++place_;
        }
    }

    [[noreturn]] void RaiseSyntax(const char* what) const {
        const std::string_view rest = shape_.substr(std::min(begin_, shape_.size()), 40);
        throw Error(ErrorNumber::Syntax,
                    QStringLiteral("Syntax error in statement: %1 at \"%2\".")
                        .arg(QLatin1String(what),
                             QString::fromUtf8(rest.data(), static_cast<qsizetype>(rest.size()))));
    }

    bool TakeKeyword(const char* keyword) {
        if (token_.kind != Token::Kind::Name || token_.keyword != keyword) {
            return false;
        }
        Advance();
        return true;
    }

    bool TakeSymbol(char symbol) {
        if (token_.kind != Token::Kind::Symbol || token_.text[0] != symbol) {
            return false;
        }
        Advance();
        return true;
    }

    void ExpectKeyword(const char* keyword, const char* complaint) {
        if (!TakeKeyword(keyword)) {
            RaiseSyntax(complaint);
        }
    }

    void ExpectSymbol(char symbol, const char* complaint) {
        if (!TakeSymbol(symbol)) {
            RaiseSyntax(complaint);
        }
    }

    // Words that carry the statement's structure are names only in brackets.
    bool AtName() const {
        static const std::vector<std::string> structure = {
            "and",   "as",     "by",  "from",   "group",  "having", "insert", "into",
            "is",    "join",   "not", "or",     "null",   "on",     "order",  "select",
            "union", "update", "set", "values", "delete", "where",  "true",   "false"};
        return token_.kind == Token::Kind::BracketedName ||
               (token_.kind == Token::Kind::Name &&
                std::find(structure.begin(), structure.end(), token_.keyword) == structure.end());
    }

    std::string TakeName(const char* complaint) {
        if (!AtName() || token_.text.empty()) {
            RaiseSyntax(complaint);
        }
        std::string name = token_.text;
        Advance();
        return name;
    }

    // --- Parts of statements ---

    void Write(const std::string& sql) { statement_.sql += sql; }

    // A literal or a constant, and the column that it is stored in (empty if it is only compared).
    bool TakeConstant(const std::string& column) {
        if (token_.kind == Token::Kind::Literal) {
            statement_.storedIn.push_back(column);
            Write("?");
            Advance();
        } else if (TakeKeyword("true")) {
            Write("-1");
        } else if (TakeKeyword("false")) {
            Write("0");
        } else if (TakeKeyword("null")) {
            Write("null");
        } else {
            return false;
        }
        return true;
    }

    std::string TakeColumnWritten() {
        statement_.columnsWritten.push_back(TakeName("expected the name of a column"));
        return statement_.columnsWritten.back();
    }

    std::string TakeColumnRead(const char* complaint) {
        statement_.columnsRead.push_back(TakeName(complaint));
        return statement_.columnsRead.back();
    }

    void TakeTable() { statement_.table = TakeName("expected the name of a table"); }

    void ParseDelete() {
        statement_.kind = StatementKind::Delete;
        ExpectKeyword("from", "expected from");
        TakeTable();
        Write("delete from " + QuotedName(statement_.table));
        ParseWhere();
    }

    void ParseUpdate() {
        statement_.kind = StatementKind::Update;
        TakeTable();
        ExpectKeyword("set", "expected set");
        Write("update or abort " + QuotedName(statement_.table) + " set ");
        do {
            const std::string column = TakeColumnWritten();
            ExpectSymbol('=', "expected =");
            Write(QuotedName(column) + " = ");
            if (!TakeConstant(column)) {
                RaiseSyntax("expected a value");
            }
            Write(token_.text == "," ? ", " : "");
        } while (TakeSymbol(','));
        ParseWhere();
    }

    void ParseInsert() {
        statement_.kind = StatementKind::Insert;
        ExpectKeyword("into", "expected into");
        TakeTable();
        Write("insert or abort into " + QuotedName(statement_.table) + "(");
        ExpectSymbol('(', "expected the list of columns");
        const std::vector<std::string>& columns = statement_.columnsWritten;
        do {
            Write(columns.empty() ? "" : ", ");
            Write(QuotedName(TakeColumnWritten()));
        } while (TakeSymbol(','));
        ExpectSymbol(')', "expected ) after the columns");
        Write(")");
        if (TakeKeyword("values")) {
            ParseValues();
        } else {
            ExpectKeyword("select", "expected values or select");
            ParseInsertedRows();
        }
    }

    void RequireValueForEachColumn(size_t values) const {
        const size_t columns = statement_.columnsWritten.size();
        if (values != columns) {
            throw Error(ErrorNumber::ValueCountMismatch,
                        QStringLiteral("Number of query values and destination fields are not the same: "
                                       "%1 values for %2 fields.")
                            .arg(values)
                            .arg(columns));
        }
    }

    // Empty behind the last column: there are too many values then.
    std::string ColumnWritten(size_t place) const {
        return place < statement_.columnsWritten.size() ? statement_.columnsWritten[place] : std::string();
    }

    void ParseValues() {
        ExpectSymbol('(', "expected the list of values");
        Write(" values");
        statement_.valuesBegin = statement_.sql.size();
        Write("(");
        size_t values = 0;
        do {
            Write(values > 0 ? ", " : "");
            if (!TakeConstant(ColumnWritten(values))) {
                RaiseSyntax("expected a value");
            }
            ++values;
        } while (TakeSymbol(','));
        ExpectSymbol(')', "expected , or ) after a value");
        Write(")");
        RequireValueForEachColumn(values);
    }

    void ParseInsertedRows() {
        Write(" select ");
        size_t values = 0;
        do {
            Write(values > 0 ? ", " : "");
            ParseItem(ColumnWritten(values));
            ++values;
        } while (TakeSymbol(','));
        ExpectKeyword("from", "expected from");
        statement_.sourceTable = TakeName("expected the name of a table");
        Write(" from " + QuotedName(statement_.sourceTable));
        ParseWhere();
        RequireValueForEachColumn(values);
    }

    SelectItem ParseItem(const std::string& storedIn) {
        SelectItem item;
        if (!TakeConstant(storedIn)) {
            item.column = TakeColumnRead("expected a column or a value");
            Write(QuotedName(item.column));
        }
        if (TakeKeyword("as")) {
            item.alias = TakeName("expected a name after as");
            Write(" as " + QuotedName(item.alias));
        }
        return item;
    }

    void ParseSelect() {
        statement_.kind = StatementKind::Select;
        Write("select ");
        const size_t itemsBegin = statement_.sql.size();
        if (TakeSymbol('*')) {
            Write("*");
        } else {
            do {
                Write(statement_.items.empty() ? "" : ", ");
                statement_.items.push_back(ParseItem({}));
            } while (TakeSymbol(','));
        }
        statement_.itemsSql = statement_.sql.substr(itemsBegin);
        ExpectKeyword("from", "expected from");
        TakeTable();
        Write(" from " + QuotedName(statement_.table));
        ParseWhere();
        ParseOrderBy();
    }

    void ParseWhere() {
        if (!TakeKeyword("where")) {
            return;
        }
        const size_t begin = statement_.sql.size();
        Write(" where ");
        ParseCondition(0);
        statement_.whereSql = statement_.sql.substr(begin);
    }

    void ParseCondition(int depth) {
        if (depth > DeepestCondition) {
            RaiseSyntax("too many parentheses");
        }
        for (;;) {
            if (TakeSymbol('(')) {
                Write("(");
                ParseCondition(depth + 1);
                ExpectSymbol(')', "expected )");
                Write(")");
            } else {
                ParseComparison();
            }
            if (TakeKeyword("and")) {
                Write(" and ");
            } else if (TakeKeyword("or")) {
                Write(" or ");
            } else {
                return;
            }
        }
    }

    void ParseComparison() {
        const std::string column = QuotedName(TakeColumnRead("expected the name of a column"));
        if (TakeKeyword("is")) {
            Write(column + (TakeKeyword("not") ? " is not null" : " is null"));
            ExpectKeyword("null", "expected null");
            return;
        }
        std::string comparison;
        while (token_.kind == Token::Kind::Symbol &&
               std::string_view("=<>").find(token_.text) != std::string_view::npos) {
            comparison += token_.text;
            Advance();
        }
        static const std::vector<std::string> comparisons = {"=", "<>", "<", ">", "<=", ">="};
        if (std::find(comparisons.begin(), comparisons.end(), comparison) == comparisons.end()) {
            RaiseSyntax("expected a comparison");
        }
        const bool isEqual = comparison == "=";
        Write(isEqual ? "likelihood(" : "");
        Write(column + " " + comparison + " ");
        if (!TakeConstant({})) {
            Write(QuotedName(TakeColumnRead("expected a value")));
        }
        Write(Exactly);
        Write(isEqual ? Seldom : "");
    }

    void ParseOrderBy() {
        if (!TakeKeyword("order")) {
            return;
        }
        ExpectKeyword("by", "expected by");
        const size_t begin = statement_.sql.size();
        const char* separator = " order by ";
        do {
            SortColumn& sort = statement_.orderBy.emplace_back();
            sort.column = TakeColumnRead("expected the name of a column");
            Write(separator + QuotedName(sort.column));
            separator = ", ";
            if (TakeKeyword("desc")) {
                sort.descending = true;
                Write(" desc");
            } else {
                TakeKeyword("asc");
            }
        } while (TakeSymbol(','));
        statement_.orderBySql = statement_.sql.substr(begin);
    }

    std::string_view shape_;
    size_t place_ = 0;
    size_t begin_ = 0;
    Token token_;
    ParsedStatement statement_;
};

}  // namespace

ParsedStatement Parse(std::string_view shape) {
    return Parser(shape).Run();
}

}  // namespace engine::dialect
