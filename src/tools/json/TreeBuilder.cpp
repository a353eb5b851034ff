#include "tools/json/TreeBuilder.h"

#include "platform/Utf8.h"
#include "tools/json/JsonDocument.h"
#include "tools/json/PlaceInText.h"

#include <cmath>
#include <cstdlib>

namespace tools {

namespace {

constexpr int NumberOverflow = 406;

QString CharacterAt(const QByteArray& bytes, qsizetype place) {
    constexpr qsizetype LongestSequence = 4;
    if (place < 0 || place >= bytes.size()) {
        return QStringLiteral("the end of the file");
    }
    const QString rest = platform::TextFromUtf8(bytes.mid(place, LongestSequence));
    return ShownQuoted(rest.left(rest.front().isHighSurrogate() ? 2 : 1));
}

}  // namespace

bool TreeBuilder::boolean(bool value) {
    JsonValue placed;
    placed.kind = JsonKind::Boolean;
    placed.boolean = value;
    return Place(std::move(placed));
}

bool TreeBuilder::number_integer(std::int64_t value) {
    return PlaceNumber(static_cast<double>(value), QString::number(value));
}

bool TreeBuilder::number_unsigned(std::uint64_t value) {
    return PlaceNumber(static_cast<double>(value), QString::number(value));
}

bool TreeBuilder::number_float(long double, const std::string& text) {
    // From the text again: by way of the wider type some amounts would be rounded twice.
    double number = std::strtod(text.c_str(), nullptr);
    const QString shown = platform::TextFromUtf8(text);
    if (!std::isfinite(number)) {
        faults_.push_back({Pointer(), QStringLiteral("The number is too large"), Shown(shown)});
        number = 0;
    }
    return PlaceNumber(number, shown);
}

bool TreeBuilder::PlaceNumber(double number, const QString& text) {
    JsonValue placed;
    placed.kind = JsonKind::Number;
    placed.number = number;
    placed.text = Shared(text);
    return Place(std::move(placed));
}

bool TreeBuilder::string(std::string& value) {
    JsonValue placed;
    placed.kind = JsonKind::Text;
    placed.text = Shared(platform::TextFromUtf8(value));
    if (placed.text.contains(QChar(QChar::Null))) {
        faults_.push_back({Pointer(),
                           QStringLiteral("The text holds a null character or half of a surrogate pair"),
                           placed.Shown()});
    }
    return Place(std::move(placed));
}

bool TreeBuilder::binary(WideJson::binary_t&) {
    return BreakOff(QStringLiteral("Binary values don't belong here"), QString());
}

bool TreeBuilder::start_object(std::size_t) {
    return Open(JsonKind::Object);
}

bool TreeBuilder::start_array(std::size_t) {
    return Open(JsonKind::Array);
}

bool TreeBuilder::key(std::string& name) {
    Frame& frame = frames_.back();
    const QString member = Shared(platform::TextFromUtf8(name));
    frame.name = member;
    frame.isRepeated = frame.seen.contains(member);
    if (frame.isRepeated) {
        faults_.push_back({Pointer(), QStringLiteral("The member is given twice"), QString()});
    }
    frame.seen.insert(member);
    return true;
}

bool TreeBuilder::Open(JsonKind kind) {
    if (frames_.size() >= static_cast<std::size_t>(DeepestNesting)) {
        return BreakOff(QStringLiteral("Values are nested at most %1 deep").arg(DeepestNesting),
                        QStringLiteral("more"));
    }
    frames_.emplace_back();
    frames_.back().value.kind = kind;
    frames_.back().value.parts = std::make_unique<JsonValue::Parts>();
    return true;
}

bool TreeBuilder::Close() {
    JsonValue value = std::move(frames_.back().value);
    frames_.pop_back();
    value.parts->items.shrink_to_fit();
    value.parts->names = *nameLists_.insert(value.parts->names);
    return Place(std::move(value));
}

bool TreeBuilder::Place(JsonValue value) {
    if (++values_ > MostValues) {
        return BreakOff(QStringLiteral("A portfolio holds at most %1 values").arg(MostValues),
                        QStringLiteral("more"));
    }
    if (frames_.empty()) {
        root_ = std::move(value);
        return true;
    }
    Frame& frame = frames_.back();
    if (frame.isRepeated) {
        return true;
    }
    if (frame.value.kind == JsonKind::Object) {
        frame.value.parts->names.push_back(frame.name.value_or(QString()));
    }
    frame.value.parts->items.push_back(std::move(value));
    return true;
}

bool TreeBuilder::parse_error(std::size_t position, const std::string& lastToken,
                              const nlohmann::detail::exception& error) {
    if (error.id == NumberOverflow) {
        return BreakOff(QStringLiteral("The number is too large"), Shown(QString::fromStdString(lastToken)));
    }
    const auto place = static_cast<qsizetype>(position) - 1;
    return BreakOff(PlaceInText(bytes_, place) + QStringLiteral(": this isn't valid JSON"),
                    CharacterAt(bytes_, place));
}

QString TreeBuilder::Shared(const QString& text) {
    return *texts_.insert(text);
}

QString TreeBuilder::Pointer() const {
    QString pointer;
    for (const Frame& frame : frames_) {
        if (frame.value.kind == JsonKind::Array) {
            pointer = ElementPointer(pointer, static_cast<qsizetype>(frame.value.parts->items.size()));
        } else if (frame.name) {
            pointer = MemberPointer(pointer, *frame.name);
        }
    }
    return pointer;
}

bool TreeBuilder::BreakOff(const QString& rule, const QString& found) {
    faults_.push_back({Pointer(), rule, found});
    return false;
}

}  // namespace tools
