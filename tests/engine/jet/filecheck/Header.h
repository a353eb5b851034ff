#pragma once

#include "Image.h"

namespace engine::jet::filecheck {

/// Looks at what the first page of a file says of its format.
void CheckHeader(const View& page, Findings& findings);

}  // namespace engine::jet::filecheck
