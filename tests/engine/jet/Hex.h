#pragma once

#include "engine/jet/Key.h"

#include <QByteArray>

#include <string>

namespace engine::jet {

inline std::string HexOf(KeyView bytes) {
    const QByteArray raw(reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size()));
    return raw.toHex().toUpper().toStdString();
}

/// Blanks between the digits don't count.
inline Key FromHex(const char* digits) {
    const QByteArray raw = QByteArray::fromHex(digits);
    return {raw.begin(), raw.end()};
}

}  // namespace engine::jet
