#pragma once

#include "support/AddressSanitizer.h"

#include <cstddef>
#include <cstdint>

#ifdef WITH_ADDRESS_SANITIZER
// The compiler brings the function but not always the header that declares it.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#else
#include <malloc.h>
#endif

/// How many bytes this process has asked for and not given back.
inline std::int64_t HeapInUse() {
#ifdef WITH_ADDRESS_SANITIZER
    return static_cast<std::int64_t>(__sanitizer_get_current_allocated_bytes());
#else
    const struct mallinfo2 info = mallinfo2();
    return static_cast<std::int64_t>(info.uordblks + info.hblkhd);
#endif
}
