// Starts a program and measures, until its first window is mapped and its first sample is at the
// sink: the time, the processor time of the process, its memory. Prints one line of numbers:
//   milliseconds to the mapped window, milliseconds of processor time to that point, PSS in
//   kilobytes half a second later, milliseconds to the first sample (-1 without --sound),
//   milliseconds until the middle of the screen shows something.
// Usage: start_time [--sound] PROGRAM [ARGUMENT...]; the display and the sound server are the
// environment's.
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include "screen.h"
#include "sink_listener.h"

namespace {

double ProcessorMs(pid_t process) {
    clockid_t clock{};
    timespec spent{};
    if (clock_getcpuclockid(process, &clock) != 0 || clock_gettime(clock, &spent) != 0) return -1;
    return static_cast<double>(spent.tv_sec) * 1e3 + static_cast<double>(spent.tv_nsec) / 1e6;
}

long PssKb(pid_t process) {
    std::ifstream rollup("/proc/" + std::to_string(process) + "/smaps_rollup");
    std::string word;
    long kilobytes = -1;
    while (rollup >> word)
        if (word == "Pss:" && rollup >> kilobytes) break;
    return kilobytes;
}

// Whether the pixel in the middle of the screen isn't black; the root window is.
bool ShowsPicture(const Screen& screen) {
    const std::string pixel = screen.Pixels(640, 400, 1, 1);
    return pixel.size() >= 3 && (pixel[0] != 0 || pixel[1] != 0 || pixel[2] != 0);
}

// Waits for a top window to be mapped; what toolkits make for themselves never is.
void WaitForMap(xcb_connection_t* display) {
    while (xcb_generic_event_t* event = xcb_wait_for_event(display)) {
        const bool mapped = (event->response_type & 0x7F) == XCB_MAP_NOTIFY;
        std::free(event);
        if (mapped) return;
    }
}

} // namespace

int main(int count, char** arguments) {
    const bool sound = count > 1 && std::strcmp(arguments[1], "--sound") == 0;
    char** command = arguments + (sound ? 2 : 1);
    if (!*command) return 2;
    SinkListener listener;
    if (sound && !listener.Start()) return 1;
    const Screen screen;
    xcb_connection_t* display = screen.Display;
    if (xcb_connection_has_error(display)) return 1;
    const xcb_window_t root = screen.Root;
    const std::uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(display, root, XCB_CW_EVENT_MASK, &mask);
    std::free(xcb_get_input_focus_reply(display, xcb_get_input_focus(display), nullptr));

    const double startMs = NowMs();
    const pid_t process = fork();
    if (process == 0) {
        execv(command[0], command);
        _exit(127);
    }
    WaitForMap(display);
    const double mappedMs = NowMs() - startMs;
    const double processorMs = ProcessorMs(process);
    while (!ShowsPicture(screen) && NowMs() < startMs + 5000) {
    }
    const double pictureMs = NowMs() - startMs;
    usleep(500'000);
    const long pssKb = PssKb(process);
    listener.Stop();
    const double firstMs = listener.FirstMs < 0 ? -1 : listener.FirstMs - startMs;
    kill(process, SIGKILL);
    waitpid(process, nullptr, 0);
    std::printf("%.1f %.1f %ld %.1f %.1f\n", mappedMs, processorMs, pssKb, firstMs, pictureMs);
}
