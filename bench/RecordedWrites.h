#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// The writes of an import as record-writes has recorded them, taken apart so that doing them needs no
/// reading.
struct RecordedWrites {
    struct Value {
        enum class Kind { Whole, Real, Text };

        Kind kind = Kind::Whole;
        std::int64_t whole = 0;
        double real = 0;
        std::string text = {};
    };

    struct Write {
        size_t statement = 0;   ///< Its place in `statements`.
        size_t firstValue = 0;  ///< The place of its first value in `values`.
        size_t values = 0;
    };

    std::vector<std::string> statements;  ///< Each once, with "?" for its values.
    std::vector<Value> values;            ///< Those of all writes, one behind the other.
    std::vector<Write> writes;
};

RecordedWrites TakeApart(std::string_view recorded);

/// The same writes with one insert for each `rows` rows, where as many of one kind follow each other.
RecordedWrites WithInsertsOfRows(RecordedWrites recorded, size_t rows);
