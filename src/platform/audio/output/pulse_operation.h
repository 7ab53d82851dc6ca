// Requests to libpulse whose answer nobody waits for.
#pragma once

#include <pulse/operation.h>

/// Frees what a request returned. Null, which a failed request returns, is fine.
inline void Forget(pa_operation* operation) {
    if (operation) pa_operation_unref(operation);
}
