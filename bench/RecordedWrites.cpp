#include "RecordedWrites.h"

#include <cctype>
#include <charconv>
#include <unordered_map>

namespace {

using Value = RecordedWrites::Value;

bool IsDigit(char character) {
    return std::isdigit(static_cast<unsigned char>(character)) != 0;
}

bool IsOfName(char character) {
    return std::isalnum(static_cast<unsigned char>(character)) != 0 || character == '_';
}

class Reader {
public:
    explicit Reader(std::string_view text) : text_(text) {}

    RecordedWrites Read() {
        while (place_ < text_.size()) {
            const char character = text_[place_];
            if (character == '\'') {
                AddValue(TakeText());
            } else if (IsDigit(character) || (character == '-' && IsDigit(text_[place_ + 1]))) {
                if (IsHint()) {
                    Keep(text_.find(')', place_) - place_);
                } else {
                    AddValue(TakeNumber());
                }
            } else if (character == '"') {
                Keep(text_.find('"', place_ + 1) + 1 - place_);
            } else if (IsOfName(character)) {
                TakeName();
            } else if (character == ';') {
                EndWrite();
            } else {
                Keep(1);
            }
        }
        return std::move(result_);
    }

private:
    void Keep(size_t characters) {
        statement_ += text_.substr(place_, characters);
        place_ += characters;
    }

    // Whether what comes is the constant by which a comparison says how seldom it holds: behind the value
    // that is compared, and before the parenthesis that ends it.
    bool IsHint() const {
        const size_t hint = statement_.rfind("likelihood(");
        return hint != std::string::npos && statement_.find(')', hint) == std::string::npos &&
               statement_.ends_with(", ");
    }

    void TakeName() {
        size_t end = place_;
        while (IsOfName(text_[end])) {
            ++end;
        }
        Keep(end - place_);
    }

    Value TakeText() {
        Value value{.kind = Value::Kind::Text};
        for (++place_; text_[place_] != '\'' || text_[place_ + 1] == '\''; ++place_) {
            if (text_[place_] == '\'') {
                ++place_;
            }
            value.text += text_[place_];
        }
        ++place_;
        return value;
    }

    Value TakeNumber() {
        const size_t end = text_.find_first_not_of("-+.0123456789e", place_);
        const std::string_view digits = text_.substr(place_, end - place_);
        place_ = end;
        const char* const last = digits.data() + digits.size();
        Value value;
        if (std::from_chars(digits.data(), last, value.whole).ptr != last) {
            value.kind = Value::Kind::Real;
            std::from_chars(digits.data(), last, value.real);
        }
        return value;
    }

    void AddValue(Value value) {
        statement_ += '?';
        result_.values.push_back(std::move(value));
    }

    void EndWrite() {
        const auto [known, isNew] = places_.try_emplace(statement_, result_.statements.size());
        if (isNew) {
            result_.statements.push_back(statement_);
        }
        result_.writes.push_back({known->second, valuesTaken_, result_.values.size() - valuesTaken_});
        valuesTaken_ = result_.values.size();
        statement_.clear();
        place_ += std::string_view(";\n").size();
    }

    std::string_view text_;
    size_t place_ = 0;
    std::string statement_;
    size_t valuesTaken_ = 0;
    std::unordered_map<std::string, size_t> places_;
    RecordedWrites result_;
};

// An insert with its list of values this often; anything else as it is.
std::string ForRows(const std::string& statement, size_t rows) {
    const std::string keyword = " values";
    const size_t place = statement.find(keyword + '(');
    if (place == std::string::npos) {
        return statement;
    }
    const std::string values = statement.substr(place + keyword.size());
    std::string all = statement;
    for (size_t row = 1; row < rows; ++row) {
        all += ", " + values;
    }
    return all;
}

}  // namespace

RecordedWrites TakeApart(std::string_view recorded) {
    return Reader(recorded).Read();
}

RecordedWrites WithInsertsOfRows(RecordedWrites recorded, size_t rows) {
    const size_t kinds = recorded.statements.size();
    for (size_t kind = 0; kind < kinds; ++kind) {
        recorded.statements.push_back(ForRows(recorded.statements[kind], rows));
    }
    const std::vector<RecordedWrites::Write> single = std::move(recorded.writes);
    recorded.writes.clear();
    for (size_t place = 0; place < single.size();) {
        RecordedWrites::Write write = single[place];
        size_t count = 1;
        while (count < rows && place + count < single.size() &&
               single[place + count].statement == write.statement) {
            ++count;
        }
        const bool isInsert =
            recorded.statements[write.statement] != recorded.statements[write.statement + kinds];
        if (count == rows && isInsert) {
            write.statement += kinds;
            write.values *= rows;
        } else {
            count = 1;
        }
        recorded.writes.push_back(write);
        place += count;
    }
    return recorded;
}
