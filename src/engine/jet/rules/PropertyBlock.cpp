#include "engine/jet/rules/PropertyBlock.h"

#include "engine/Error.h"
#include "engine/jet/Bytes.h"
#include "engine/jet/TableLayout.h"
#include "engine/jet/Text.h"

#include <algorithm>

namespace engine::jet {

namespace {

const QByteArray Signature("MR2\0", 4);

namespace PartKind {
constexpr std::uint16_t OfTable = 0;
constexpr std::uint16_t OfColumn = 1;
constexpr std::uint16_t Names = 0x80;
}  // namespace PartKind

constexpr std::size_t PartHead = 6;
constexpr std::size_t PartNameHead = 6;
constexpr std::size_t PropertyHead = 8;

[[noreturn]] void Refuse(const QString& what) {
    throw Error(ErrorNumber::InvalidOperation,
                QStringLiteral("Invalid operation: its properties can't be read, %1.").arg(what));
}

// Takes bytes from the front of what is left. A length is always compared with what is left of the bytes that
// it stands in, so that nothing leads out of them.
class Front {
public:
    explicit Front(const Bytes& bytes) : left_(bytes) {}

    bool IsAtEnd() const { return left_.Size() == 0; }
    Bytes Take(std::size_t size) {
        const Bytes taken = Peek(size);
        left_ = left_.From(size);
        return taken;
    }
    Bytes Peek(std::size_t size) const {
        if (size > left_.Size()) {
            Refuse(QStringLiteral("a length of %1 bytes leads beyond %2 that are left")
                       .arg(static_cast<qulonglong>(size))
                       .arg(static_cast<qulonglong>(left_.Size())));
        }
        return left_.Part(0, size);
    }
    // A length counts the bytes in front of it as well, at least those of its own head.
    Bytes TakeCounted(std::size_t size, std::size_t head) {
        if (size < head) {
            Refuse(QStringLiteral("a part of %1 bytes is too short").arg(static_cast<qulonglong>(size)));
        }
        return Take(size).From(head);
    }
    QString TakeText(std::size_t size) {
        const Bytes text = Take(size);
        if (size % 2 != 0) {
            Refuse(QStringLiteral("a name or a text ends within a character"));
        }
        return PlainText(text);
    }

private:
    Bytes left_;
};

bool IsSame(const QString& one, const QString& other) {
    return one.compare(other, Qt::CaseInsensitive) == 0;
}

}  // namespace

/// Reads a block from its front to its end.
class PropertyReader {
public:
    explicit PropertyReader(const QByteArray& block) : block_(block) {}

    std::vector<PropertyBlock::Part> Read() {
        Front block(BytesOf(block_, 0));
        if (!block_.startsWith(Signature)) {
            Refuse(QStringLiteral("they begin in a way that isn't known"));
        }
        block.Take(static_cast<std::size_t>(Signature.size()));
        while (!block.IsAtEnd()) {
            const Bytes head = block.Peek(PartHead);
            ReadPart(head.U16(4), Front(block.TakeCounted(head.U32(0), PartHead)));
        }
        return std::move(parts_);
    }

private:
    void ReadPart(std::uint16_t kind, Front part) {
        if (kind == PartKind::Names) {
            ReadNames(part);
        } else if (kind == PartKind::OfTable || kind == PartKind::OfColumn) {
            ReadValues(kind, part);
        } else {
            Refuse(QStringLiteral("they have a part of kind %1").arg(kind));
        }
    }

    void ReadNames(Front& part) {
        if (!names_.empty()) {
            Refuse(QStringLiteral("they have two lists of names"));
        }
        while (!part.IsAtEnd()) {
            names_.push_back(part.TakeText(part.Take(2).U16(0)));
        }
    }

    void ReadValues(std::uint16_t kind, Front& part) {
        const Bytes head = part.Peek(PartNameHead);
        Front name(part.TakeCounted(head.U32(0), PartNameHead));
        PropertyBlock::Part values{kind == PartKind::OfTable, name.TakeText(head.U16(4)), {}};
        while (!part.IsAtEnd()) {
            values.properties.push_back(ReadValue(part));
        }
        parts_.push_back(std::move(values));
    }

    PropertyBlock::Property ReadValue(Front& part) const {
        const Bytes head = part.Peek(PropertyHead);
        const std::uint16_t name = head.U16(4);
        if (name >= names_.size()) {
            Refuse(QStringLiteral("a value has the name number %1 of %2").arg(name).arg(names_.size()));
        }
        Front value(part.TakeCounted(head.U16(0), PropertyHead));
        return {names_[name], head.U8(3), value.Take(head.U16(6)).Copy()};
    }

    const QByteArray& block_;
    std::vector<QString> names_;
    std::vector<PropertyBlock::Part> parts_;
};

PropertyBlock::PropertyBlock(const QByteArray& block) : parts_(PropertyReader(block).Read()) {
}

namespace {

template <class Property>
std::optional<QString> TextOf(const Property* property) {
    if (property == nullptr) {
        return std::nullopt;
    }
    if (!IsTextType(property->type) || property->value.size() % 2 != 0) {
        Refuse(QStringLiteral("'%1' is no text").arg(property->name));
    }
    return PlainText(BytesOf(property->value, 0));
}

}  // namespace

const PropertyBlock::Property* PropertyBlock::FindOfTable(const QString& property) const {
    for (const Part& part : parts_) {
        for (const Property& known : part.properties) {
            if (part.isOfTable && IsSame(known.name, property)) {
                return &known;
            }
        }
    }
    return nullptr;
}

const PropertyBlock::Property* PropertyBlock::FindOfColumn(const QString& column,
                                                           const QString& property) const {
    for (const Part& part : parts_) {
        for (const Property& known : part.properties) {
            if (!part.isOfTable && IsSame(part.column, column) && IsSame(known.name, property)) {
                return &known;
            }
        }
    }
    return nullptr;
}

std::optional<QString> PropertyBlock::TextOfTable(const QString& property) const {
    return TextOf(FindOfTable(property));
}

std::optional<QString> PropertyBlock::TextOfColumn(const QString& column, const QString& property) const {
    return TextOf(FindOfColumn(column, property));
}

// Yes may be any byte but 0, and other programs don't always write one alone.
std::optional<bool> PropertyBlock::YesNoOfColumn(const QString& column, const QString& property) const {
    const Property* found = FindOfColumn(column, property);
    if (found == nullptr) {
        return std::nullopt;
    }
    const QByteArray& bytes = found->value;
    return std::any_of(bytes.begin(), bytes.end(), [](char byte) { return byte != 0; });
}

}  // namespace engine::jet
