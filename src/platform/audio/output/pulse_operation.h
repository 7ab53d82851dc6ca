// What libpulse is asked to do without waiting for its answer.
#pragma once

#include <pulse/operation.h>

/// Lets the answer go; null, as of a request that failed, is taken, too.
inline void Forget(pa_operation* operation) {
    if (operation) pa_operation_unref(operation);
}
