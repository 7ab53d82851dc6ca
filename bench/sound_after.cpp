// Measures from an action of the user to the first sound of it at the sink: a key, or the release
// of the left button that is held. Usage: sound_after THRESHOLD KEYCODE; a key code of 0 means the
// button. What isn't louder than the threshold is no sound. Prints milliseconds.
#include <cstdio>
#include <cstdlib>
#include <unistd.h>

#include "screen.h"
#include "sink_listener.h"

int main(int count, char** arguments) {
    if (count != 3) return 2;
    const Screen screen;
    SinkListener listener;
    listener.Threshold = std::atoi(arguments[1]);
    if (!listener.Start()) return 1;
    usleep(300'000);
    const int key = std::atoi(arguments[2]);
    const double startMs = NowMs();
    if (key != 0)
        screen.Key(key);
    else
        screen.Release();
    while (listener.FirstMs < 0 && NowMs() < startMs + 5000)
        usleep(1000);
    listener.Stop();
    std::printf("%.1f\n", listener.FirstMs - startMs);
}
