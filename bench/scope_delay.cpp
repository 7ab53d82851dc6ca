// Measures from a sound at the sink to its bar on the screen: waits until the sink isn't silent and
// until something yellow stands in a rectangle of the screen. Usage: scope_delay LEFT TOP WIDTH
// HEIGHT; prints the milliseconds from the sound to the picture, below 0 if the picture came first.
#include <cstdio>
#include <cstdlib>
#include <unistd.h>

#include "screen.h"
#include "sink_listener.h"

namespace {

bool HasYellow(const std::string& pixels) {
    for (std::size_t at = 0; at + 3 < pixels.size(); at += 4) {
        const auto byte = [&](std::size_t offset) {
            return static_cast<unsigned char>(pixels[at + offset]);
        };
        if (byte(0) < 40 && byte(1) > 240 && byte(2) > 240) return true;
    }
    return false;
}

} // namespace

int main(int count, char** arguments) {
    if (count != 5) return 2;
    const Screen screen;
    SinkListener listener;
    if (!listener.Start()) return 1;
    const auto number = [&](int index) { return std::atoi(arguments[index]); };
    const double limitMs = NowMs() + 20'000;
    double seenMs = -1;
    while (seenMs < 0 && NowMs() < limitMs) {
        if (HasYellow(screen.Pixels(number(1), number(2), number(3), number(4)))) seenMs = NowMs();
        usleep(500);
    }
    while (listener.FirstMs < 0 && NowMs() < limitMs)
        usleep(1000);
    listener.Stop();
    std::printf("%.1f\n", seenMs - listener.FirstMs);
}
