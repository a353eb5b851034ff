#pragma once

#include <QByteArray>

/// A cursor file of 16 by 16 black pixels with its hot spot at (5, 1).
inline QByteArray CursorFile() {
    QByteArray file;
    const auto put16 = [&file](int value) {
        file += static_cast<char>(value & 255), file += static_cast<char>(value >> 8);
    };
    const auto put32 = [&put16](int value) { put16(value & 65535), put16(value >> 16); };
    constexpr int Side = 16;
    constexpr int Pixels = Side * Side * 4;
    constexpr int Mask = Side * 4;
    put16(0), put16(2), put16(1);
    file += static_cast<char>(Side), file += static_cast<char>(Side), put16(0);
    put16(5), put16(1), put32(40 + Pixels + Mask), put32(22);
    put32(40), put32(Side), put32(Side * 2), put16(1), put16(32), put32(0), put32(Pixels), put32(0), put32(0);
    put32(0), put32(0);
    for (int pixel = 0; pixel < Side * Side; ++pixel) {
        file += QByteArray("\0\0\0\xff", 4);
    }
    file += QByteArray(Mask, '\0');
    return file;
}
