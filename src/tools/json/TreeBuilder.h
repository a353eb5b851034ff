#pragma once

#include "tools/json/Fault.h"
#include "tools/json/JsonValue.h"

#include <QByteArray>
#include <QSet>
#include <QStringList>

#include <nlohmann/json.hpp>

#include <cstdint>
#include <optional>
#include <string>

namespace tools {

/// The parser's number type is wider than ours, so that a number too large for a double is a fault with its
/// pointer like any other instead of the end of the reading.
using WideJson =
    nlohmann::basic_json<std::map, std::vector, std::string, bool, std::int64_t, std::uint64_t, long double>;

/// Takes the parser's events and builds the tree, noting faults by their pointers.
class TreeBuilder : public nlohmann::json_sax<WideJson> {
public:
    TreeBuilder(const QByteArray& bytes, Faults& faults) : bytes_(bytes), faults_(faults) {}

    JsonValue Take() { return std::move(root_); }

    bool null() override { return Place(JsonValue()); }
    bool boolean(bool value) override;
    bool number_integer(std::int64_t value) override;
    bool number_unsigned(std::uint64_t value) override;
    bool number_float(long double value, const std::string& text) override;
    bool string(std::string& value) override;
    bool binary(WideJson::binary_t& value) override;
    bool start_object(std::size_t elements) override;
    bool key(std::string& name) override;
    bool end_object() override { return Close(); }
    bool start_array(std::size_t elements) override;
    bool end_array() override { return Close(); }
    bool parse_error(std::size_t position, const std::string& lastToken,
                     const nlohmann::detail::exception& error) override;

private:
    struct Frame {
        JsonValue value;
        QSet<QString> seen;
        std::optional<QString> name;  ///< Of the member being read; none before the first.
        bool isRepeated = false;
    };

    bool Open(JsonKind kind);
    bool Close();
    bool Place(JsonValue value);
    bool PlaceNumber(double number, const QString& text);
    QString Shared(const QString& text);
    QString Pointer() const;
    bool BreakOff(const QString& rule, const QString& found);

    const QByteArray& bytes_;
    Faults& faults_;
    JsonValue root_;
    std::vector<Frame> frames_;
    // Records of a kind have the same members, and many of their texts are the same: each is kept once, which
    // halves what a portfolio takes.
    QSet<QString> texts_;
    QSet<QStringList> nameLists_;
    qsizetype values_ = 0;
};

}  // namespace tools
