#pragma once

#include <QString>

#include <optional>
#include <system_error>

namespace platform {

bool IsInputATerminal();
bool AreErrorsATerminal();

enum class Stream { Output, Errors };

/// Text of any language, whatever the locale: in UTF-8, but for a console that takes letters themselves. What
/// has kept it from arriving, or no error.
std::error_code WriteText(Stream stream, const QString& text);

/// A line that the user enters, without more than its first 60 characters. Nothing at the end of the input,
/// or if a signal that asks for the end comes in between.
std::optional<QString> ReadLine();

}  // namespace platform
