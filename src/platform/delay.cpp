// The system's wait. It stands apart from the loop so that callers name it as the system does.
#include "platform/loop.h"

void Delay(Loop& loop, double Seconds) {
    loop.Wait(Seconds);
}
