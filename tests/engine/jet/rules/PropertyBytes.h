#pragma once

#include "engine/jet/Bytes.h"
#include "engine/jet/TableLayout.h"
#include "engine/jet/Text.h"

#include <QStringList>

namespace engine::jet {

/// Writes blocks of properties, as the designer of another program would.
class PropertyBytes {
public:
    PropertyBytes& OfTable(const char* property, const QString& text) {
        return Add(0, QString(), property, ColumnType::Text, ToPlainText(text));
    }
    PropertyBytes& OfColumn(const char* column, const char* property, const QString& text) {
        return Add(1, QLatin1String(column), property, ColumnType::Memo, ToPlainText(text));
    }
    PropertyBytes& OfColumn(const char* column, const char* property, bool yes) {
        return Add(1, QLatin1String(column), property, ColumnType::Boolean,
                   QByteArray(1, static_cast<char>(yes ? 0xFF : 0)));
    }
    PropertyBytes& Add(std::uint16_t kind, const QString& column, const char* property, std::uint8_t type,
                       const QByteArray& value) {
        const QString name = QLatin1String(property);
        if (!names_.contains(name)) {
            names_ += name;
        }
        QByteArray entry = Number(8 + value.size(), 2) + QByteArray(1, '\1') + Number(type, 1);
        entry += Number(names_.indexOf(name), 2) + Number(value.size(), 2) + value;
        const QByteArray of = ToPlainText(column);
        parts_ += Part(kind, Number(6 + of.size(), 4) + Number(of.size(), 2) + of + entry);
        return *this;
    }

    QByteArray Block() const {
        QByteArray names;
        for (const QString& name : names_) {
            const QByteArray text = ToPlainText(name);
            names += Number(text.size(), 2) + text;
        }
        return QByteArray("MR2\0", 4) + Part(0x80, names) + parts_;
    }

    static QByteArray Number(qsizetype number, int size) {
        QByteArray bytes;
        for (int byte = 0; byte < size; ++byte) {
            bytes += static_cast<char>(number >> (8 * byte));
        }
        return bytes;
    }
    static QByteArray Part(int kind, const QByteArray& content) {
        return Number(6 + content.size(), 4) + Number(kind, 2) + content;
    }

private:
    QStringList names_;
    QByteArray parts_;
};

}  // namespace engine::jet
