#pragma once

#include "engine/Error.h"

namespace engine::jet {

/// The number of the engine's failure that an action ends with, 0 if there is none.
template <class Action>
int FailureOf(Action action) {
    try {
        action();
    } catch (const Error& error) {
        return error.Number();
    }
    return 0;
}

}  // namespace engine::jet
