#include "engine/sqlite/SqlText.h"

#include "engine/dialect/Names.h"

#include <algorithm>

namespace engine::sqlite {

namespace {

bool IsWordCharacter(char character) {
    const auto byte = static_cast<unsigned char>(character);
    return (byte >= '0' && byte <= '9') || (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') ||
           byte == '_' || byte == '$' || byte >= 0x80;
}

// Where what begins here ends: at this closing text, which belongs to it, or with all of the SQL.
size_t EndAfter(std::string_view sql, size_t from, std::string_view closing) {
    const size_t end = sql.find(closing, from);
    return end == std::string_view::npos ? sql.size() : end + closing.size();
}

// The place behind a text, a quoted name or a comment that begins here; the same place if none does. A
// doubled quote looks like two texts side by side, which comes to the same.
size_t EndOfQuoted(std::string_view sql, size_t place) {
    switch (sql[place]) {
        case '\'':
        case '"':
        case '`':
            return EndAfter(sql, place + 1, sql.substr(place, 1));
        case '[':
            return EndAfter(sql, place + 1, "]");
        case '-':
            return sql.substr(place, 2) == "--" ? EndAfter(sql, place, "\n") : place;
        case '/':
            return sql.substr(place, 2) == "/*" ? EndAfter(sql, place + 2, "*/") : place;
        default:
            return place;
    }
}

}  // namespace

std::string BareSql(std::string_view sql) {
    std::string bare;
    for (size_t place = 0; place < sql.size();) {
        const size_t end = EndOfQuoted(sql, place);
        bare += end > place ? ' ' : sql[place];
        place = std::max(end, place + 1);
    }
    return dialect::LowerCase(bare);
}

bool HasWord(std::string_view bareSql, std::string_view word) {
    for (size_t place = bareSql.find(word); place != std::string_view::npos;
         place = bareSql.find(word, place + 1)) {
        const size_t end = place + word.size();
        const bool begins = place == 0 || !IsWordCharacter(bareSql[place - 1]);
        const bool ends = end == bareSql.size() || !IsWordCharacter(bareSql[end]);
        if (begins && ends) {
            return true;
        }
    }
    return false;
}

}  // namespace engine::sqlite
