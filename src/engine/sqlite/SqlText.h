#pragma once

#include <string>
#include <string_view>

namespace engine::sqlite {

/// SQL text without its comments and with a blank for each text and each quoted name, in small letters: what
/// is left are the words and signs that SQLite acts on.
std::string BareSql(std::string_view sql);

/// Whether a word, in small letters, stands in bare SQL by itself.
bool HasWord(std::string_view bareSql, std::string_view word);

}  // namespace engine::sqlite
