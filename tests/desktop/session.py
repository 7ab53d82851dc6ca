#!/usr/bin/python3
# A display and a sound server of one's own, for runs of the real program. Everything that was
# started in a session ends with it. Each wait is for a condition.
#
# As a program it runs a command in a session: session.py PART... -- COMMAND...
# The parts are display or screens, sound or shared_sound, manager, bus; SESSION_DIRECTORY is the
# session's own directory.
import contextlib
import os
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile
import time

PATIENCE_SECONDS, PAUSE_SECONDS = 60, 0.01
# Where a user keeps what the program may look for, all of it elsewhere now.
OWN_PLACES = "CONFIG_HOME", "DATA_HOME", "CACHE_HOME", "STATE_HOME"

SOUND_SERVER = pathlib.Path(__file__).parent.parent / "support" / "sound_server"
NULL_SINK = "module-null-sink sink_name=out format=s16le rate=44100 channels=2"

# What compositors show behind all windows, and who is nobody.
GROUND, NOBODY = "#204060", 65534

# It starts nothing by itself, or a real desktop's file chooser might come up.
BUS = """<busconfig><type>session</type><listen>{}</listen><policy context="default">
<allow own="*"/>
<allow send_destination="*" eavesdrop="true"/><allow eavesdrop="true"/></policy></busconfig>"""


# No monitor says what it can show.
SCREENS = """
Section "ServerFlags"
  Option "AutoAddDevices" "false"
EndSection
Section "Device"
  Identifier "card"
  Driver "dummy"
  VideoRam 65536
EndSection
Section "Monitor"
  Identifier "monitor"
  HorizSync 5-1000
  VertRefresh 5-200
EndSection
Section "Screen"
  Identifier "screen"
  Device "card"
  Monitor "monitor"
  DefaultDepth 24
  SubSection "Display"
    Depth 24
    Virtual 2400 1200
    Modes "800x600"
  EndSubSection
EndSection
"""


class GaveUp(Exception):
    # Something that has to happen did not.
    pass


def wait_for(what, condition, patience=PATIENCE_SECONDS):
    # Looks until the condition holds, and returns what it told. A look may fail by an exception as
    # well; in the end the last one is told.
    deadline, last = time.monotonic() + patience, None
    while True:
        try:
            told = condition()
            if told:
                return told
        except (OSError, LookupError, ValueError, AssertionError) as error:
            last = error
        if time.monotonic() > deadline:
            raise GaveUp(f"gave up waiting for {what}" + (f": {last!r}" if last else ""))
        time.sleep(PAUSE_SECONDS)


class Session:
    # Its directory is `directory`; HOME, DISPLAY and so on are set for this process and its
    # children.

    def __init__(self, *parts, screen="1280x800x24"):
        self.directory = pathlib.Path(tempfile.mkdtemp(prefix="velora-"))
        self.processes = []
        self.screen = screen
        runtime = self.directory / "runtime"
        runtime.mkdir(mode=0o700)
        (self.directory / "home").mkdir()
        for name in ("WAYLAND_DISPLAY", *(f"XDG_{place}" for place in OWN_PLACES)):
            os.environ.pop(name, None)
        # No message bus: a program that finds none named would start one that outlives the session.
        os.environ.update(HOME=str(self.directory / "home"), XDG_RUNTIME_DIR=str(runtime),
                          DBUS_SESSION_BUS_ADDRESS=f"unix:path={runtime}/no-bus")
        try:
            for part in parts:
                getattr(self, f"start_{part}")()
        except BaseException:
            self.end()
            raise

    def start(self, *command, log=None, **options):
        # Starts a command, which ends with the session at the latest. What it says goes to LOG.log.
        log = log or pathlib.Path(command[0]).name
        with open(self.directory / f"{log}.log", "ab") as out:
            process = subprocess.Popen([str(word) for word in command], stdin=subprocess.DEVNULL,
                                       stdout=out, stderr=out, **options)
        self.processes.append(process)
        return process

    def start_display(self):
        self.start_server("Xvfb", "-screen", 0, self.screen, "-r")

    def start_screens(self):
        # A display with screens that come and go, DUMMY0 and so on. It looks for no devices, and
        # for no terminal to take over, since its seat isn't the first.
        file = self.directory / "screens.conf"
        file.write_text(SCREENS)
        self.start_server("/usr/lib/xorg/Xorg", "-config", file, "-seat", "none", "-novtswitch",
                          "-logfile", self.directory / "server.said")

    def set_screens(self, places):
        # To those that are named, each with its rectangle.
        words = []
        for name in "DUMMY0", "DUMMY1":
            if name in places:
                left, top, width, height = places[name]
                subprocess.run(["xrandr", "--addmode", name, f"{width}x{height}"],
                               capture_output=True)
                words += ["--output", name, "--mode", f"{width}x{height}", "--pos", f"{left}x{top}"]
            else:
                words += ["--output", name, "--off"]
        subprocess.run(["xrandr", *words], check=True, capture_output=True)

    def start_server(self, *command):
        # The server chooses a free number and tells it. It must not start afresh whenever its last
        # client leaves, and not repeat a key whose release comes late on a busy machine, or a path
        # would be typed wrong.
        told, tells = os.pipe()
        self.display = self.start(*command, "-displayfd", tells, "-noreset", "-nolisten", "tcp",
                                  pass_fds=[tells])
        os.close(tells)
        with os.fdopen(told) as number:
            os.environ.update(DISPLAY=":" + number.readline().strip(), QT_QPA_PLATFORM="xcb")
        if os.environ["DISPLAY"] == ":":
            raise GaveUp("no display")

    def start_sound(self, without_memory="yes"):
        # Of the kind that SOUND_SERVER names. Its sink is the one that the recordings are made
        # from. PulseAudio's is without rewinds, since a recorder does not get again what the sink
        # makes anew, and without shared memory, since the server ends by an assertion of its own
        # now and then where a recorder is handed a player's memory.
        socket = self.directory / "native"
        socket.unlink(missing_ok=True)
        self.sound = self.start(
            SOUND_SERVER, os.environ.get("SOUND_SERVER", "pulseaudio"), self.directory,
            f"--disable-shm={without_memory}", "-L", f"{NULL_SINK} norewinds=1")
        os.environ["PULSE_SERVER"] = f"unix:{socket}"
        wait_for("the sound server", lambda: "Default Sink: out" in subprocess.run(
            ["pactl", "info"], capture_output=True, text=True).stdout)

    def start_shared_sound(self):
        # The same with that memory, as on a desktop: it is a part of what sound costs.
        self.start_sound(without_memory="no")

    def start_tiling_manager(self, name):
        # One that has windows beside each other: `i3` or `dwm`.
        file = self.directory / "i3.config"
        file.write_text("font pango:monospace 8\n")
        self.manager = self.start(*{"i3": ("i3", "-c", file), "dwm": ("dwm",)}[name])

    def start_compositor(self, name):
        # `weston` or `sway`, in a window of its own that fills the display, so that hand and eye
        # are the same as elsewhere. One refuses to be root.
        place = self.directory / name
        place.mkdir(mode=0o700)
        told = {"weston": f"[core]\nidle-time=0\nuse-pixman=true\n"
                          f"[shell]\npanel-position=none\nlocking=false\n"
                          f"animation=none\nstartup-animation=none\nclose-animation=none\n"
                          f"background-color=0xff{GROUND[1:]}\nbackground-type=tile\n",
                "sway": f"output * bg {GROUND} solid_color\ndefault_border none\n"
                        f"xwayland disable\nfor_window [app_id=velora] floating enable\n"}[name]
        (place / "config").write_text(told)
        command = {"weston": ("weston", "--backend=x11-backend.so", "--width=1280",
                              "--height=800"),
                   "sway": ("sway",)}[name]
        if os.geteuid() == 0:
            self.directory.chmod(0o711)
            for file in (place, place / "config"):
                os.chown(file, NOBODY, NOBODY)
            command = ("setpriv", f"--reuid={NOBODY}", f"--regid={NOBODY}", "--clear-groups",
                       *command)
        self.compositor = self.start(
            *command, "-c", place / "config", log=name,
            env={**os.environ, "XDG_RUNTIME_DIR": str(place), "HOME": str(place),
                 "WLR_BACKENDS": "x11", "WLR_RENDERER": "pixman"})
        wait_for("the compositor", lambda: [*place.glob("wayland-?")])
        os.environ.update(WAYLAND_DISPLAY=str([*place.glob("wayland-?")][0]),
                          QT_QPA_PLATFORM="wayland")
        return place

    def start_manager(self):
        # Without a file of its own it would complain in a window.
        file = self.directory / "openbox.xml"
        file.write_text('<openbox_config xmlns="http://openbox.org/3.4/rc"/>')
        # It runs the command once it manages.
        ready = self.directory / "managed"
        self.manager = self.start("openbox", "--config-file", file, "--startup", f"touch {ready}")
        wait_for("the window manager", ready.exists)

    def start_bus(self):
        # A message bus of the session's own, with that of assistive technology.
        address = f"unix:path={self.directory}/bus"
        (self.directory / "bus.conf").write_text(BUS.format(address))
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = address
        self.bus = self.start("dbus-daemon", f"--config-file={self.directory}/bus.conf", "--nofork")
        wait_for("the bus", (self.directory / "bus").exists)
        self.start("/usr/libexec/at-spi-bus-launcher")
        wait_for("the bus of assistive technology", lambda: succeeds(
            "dbus-send", "--session", "--print-reply", "--dest=org.a11y.Bus", "/org/a11y/bus",
            "org.a11y.Bus.GetAddress"))

    def record(self, file, option="--raw", sink="out"):
        # Records the sink as s16le stereo at 44.1 kHz until the session ends; returns once it
        # delivers.
        recorder = self.start("parec", "-d", f"{sink}.monitor", "--format=s16le", "--rate=44100",
                              "--channels=2", "--latency-msec=20", option, file)
        wait_for("the recording", lambda: os.path.getsize(file) > 0)
        return recorder

    def end(self):
        # With a request first, by force where that isn't heard.
        for process in self.processes:
            process.terminate()
        deadline = time.monotonic() + 2
        while any(one.poll() is None for one in self.processes) and time.monotonic() < deadline:
            time.sleep(PAUSE_SECONDS)
        for process in self.processes:
            process.kill()
            process.wait()
        shutil.rmtree(self.directory, ignore_errors=True)


def succeeds(*command):
    return subprocess.run(command, capture_output=True).returncode == 0


def run(parts, command):
    session = Session(*parts)
    process = None
    try:
        process = subprocess.Popen(command, start_new_session=True,
                                   env={**os.environ, "SESSION_DIRECTORY": str(session.directory)})
        return process.wait()
    finally:
        # Whatever the command has left behind.
        if process:
            with contextlib.suppress(ProcessLookupError):
                os.killpg(process.pid, signal.SIGKILL)
        session.end()


if __name__ == "__main__":
    border = sys.argv.index("--")
    sys.exit(run(sys.argv[1:border], sys.argv[border + 1:]))
