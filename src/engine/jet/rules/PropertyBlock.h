#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <optional>
#include <vector>

namespace engine::jet {

/// The properties of a table and its columns, as the catalogue keeps them in one block: captions, widths, and
/// among them all that says which rows the table takes. Only read, never written.
class PropertyBlock {
public:
    /// Of a table without properties.
    PropertyBlock() = default;

    /// Fails with InvalidOperation, in a sentence that says what is wrong with it, for a block that isn't one
    /// or leads outside of itself.
    explicit PropertyBlock(const QByteArray& block);

    /// Of the table itself, or of one of its columns; none for a property that isn't there. Names go without
    /// regard to case. Fails with InvalidOperation for a property that is no text.
    std::optional<QString> TextOfTable(const QString& property) const;
    std::optional<QString> TextOfColumn(const QString& column, const QString& property) const;
    std::optional<bool> YesNoOfColumn(const QString& column, const QString& property) const;

private:
    struct Property {
        QString name;
        std::uint8_t type = 0;
        QByteArray value;
    };
    /// What is said of one column, or of the table itself.
    struct Part {
        bool isOfTable = false;
        QString column;
        std::vector<Property> properties;
    };
    friend class PropertyReader;

    const Property* FindOfTable(const QString& property) const;
    const Property* FindOfColumn(const QString& column, const QString& property) const;

    std::vector<Part> parts_;
};

}  // namespace engine::jet
