#pragma once

#include "engine/jet/PageStore.h"

#include <QString>

#include <array>

namespace engine::jet {

/// Refuses with UnrecognizedFormat, in a sentence that says what was found, a file whose first page isn't
/// that of a file that can be read here: of format Jet 4, with plain pages and texts in the General order.
/// A password is no obstacle: it keeps programs that ask for it from opening the file, and hides nothing.
void CheckFileHeader(const Page& header, const QString& path);

/// The first page of a new file, without a password.
///
/// All new files tell the same moment of creation. The catalogue names users by numbers that are masked by
/// something that hangs on it, nobody here knows how; so it is one of which the mask is known.
Page MakeFileHeader();

/// The users whose rights a new file tells, as its catalogue names them.
namespace FileUser {
inline constexpr std::array<char, 2> Creator{'\x65', '\x8E'};
inline constexpr std::array<char, 2> Engine{'\x65', '\x89'};
inline constexpr std::array<char, 2> Admin{'\x64', '\x8B'};
inline constexpr std::array<char, 2> Everybody{'\x65', '\x8B'};
}  // namespace FileUser

/// The 256 words by which programs that share a file tell one another that it has changed. They lie at the
/// end of the first page, and nobody here writes them.
inline constexpr std::size_t CommitWordsAt = 0xE00;
inline constexpr std::size_t CommitWordsSize = 512;

}  // namespace engine::jet
