#pragma once

#include "engine/Error.h"

#include <new>

namespace engine::jet {

/// Runs what may fail in any way, and fails with engine errors alone, as all that runs statements expects.
template <class Routine>
auto WithEngineErrors(Routine routine) {
    try {
        return routine();
    } catch (const Error&) {
        throw;
    } catch (const platform::Failure& failure) {
        throw Error(ErrorNumber::Other, failure.Description());
    } catch (const std::bad_alloc&) {
        throw Error(ErrorNumber::Other, QStringLiteral("Out of memory."));
    }
}

}  // namespace engine::jet
