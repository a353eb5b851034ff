#pragma once

#include "engine/jet/Bytes.h"

#include <QByteArray>
#include <QString>

namespace engine::jet {

/// The text that bytes stand for, as a column of texts or memos holds them: plain UTF-16, or marked as
/// compressed, with a byte for each character of the first 255 and plain parts in between. Fails with
/// DatabaseDamaged where a character is cut.
QString StoredText(const Bytes& stored);

/// The bytes of a text. Compressed exactly where the original engine does it: from three characters on, and
/// with no character beyond the first 255. Others would be understood, but nobody has ever met them. Only a
/// text that begins with U+FEFF, and so would be taken for a compressed one, is compressed where it can be.
/// Fails with WrongType for such a text with a character whose lower byte is 0, which nothing can store.
QByteArray ToStoredText(const QString& text, bool mayCompress);

/// Text that is never compressed, such as names in definitions.
QString PlainText(const Bytes& stored);
QByteArray ToPlainText(const QString& text);

}  // namespace engine::jet
