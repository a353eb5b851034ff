#pragma once

#include <QByteArray>
#include <QString>

#include <string>
#include <vector>

namespace engine::jet {

/// Whose file it is. In those of other programs some things are found that the engine never leaves behind,
/// such as pages that are neither free nor used.
enum class FileOf { Ours, Others };

/// What is wrong with a file, one sentence each; nothing if it is sound. Reads each byte that says something,
/// and shares nothing with the engine but offsets and the table of weights that keys of texts are made with:
///
/// | part              | what is looked at                                                                  |
/// |-------------------|------------------------------------------------------------------------------------|
/// | header, catalogue | the format, and that each table has a definition                                   |
/// | definitions       | lengths, numbers, places and sizes of columns, names, what indexes name            |
/// | pages             | each is free or used, once; maps name exactly what is used, and what has room      |
/// | rows              | places, free bytes, widths, null bits, offsets, texts, moves, how many there are   |
/// | long values       | each piece is part of exactly one                                                  |
/// | indexes           | the tree page by page, and its entries, one for each row and with its key          |
///
/// Properties and relations are nothing that it looks at.
std::vector<std::string> FaultsOf(const QByteArray& file, FileOf whose = FileOf::Ours);
std::vector<std::string> FaultsOfFile(const QString& path, FileOf whose = FileOf::Ours);

}  // namespace engine::jet
