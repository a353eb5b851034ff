#pragma once

/// WITH_ADDRESS_SANITIZER is defined where the sanitizer is built in, which each compiler tells in its own
/// way.
#ifdef __SANITIZE_ADDRESS__
#define WITH_ADDRESS_SANITIZER
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define WITH_ADDRESS_SANITIZER
#endif
#endif

/// How many of so many random cases are tried: all of them, or one of so many under the sanitizer, which
/// finds in few what it can find and takes many times as long for each.
constexpr int CasesToTry(int all, [[maybe_unused]] int oneOf) {
#ifdef WITH_ADDRESS_SANITIZER
    return all / oneOf;
#else
    return all;
#endif
}
