#pragma once

#include <QByteArray>

namespace tools {

/// Turns \u escapes of a lone surrogate half into \u0000, in place. Neither can be stored and both are told
/// as the same fault, but the parser would break off at the first, and the rest of the file's faults would
/// stay untold.
void NeutraliseLoneSurrogates(QByteArray& json);

}  // namespace tools
