"""A soak: drives the real program at random for a given time, and stops at the first thing wrong.

    /usr/bin/python3 tests/windows/soak --minutes 60 --preset asan

docs/architecture.md tells what it does and what it prints.
"""

import argparse
import faulthandler
import json
import os
import random
import re
import shutil
import subprocess
import sys
import tempfile
import time
import traceback
from collections import Counter, deque

HERE = os.path.dirname(os.path.abspath(__file__))
ROOT = os.path.dirname(os.path.dirname(os.path.dirname(HERE)))
INSIDE = "LORIVANE_INSIDE_SOAK"

# How much longer than the built program one with a sanitizer may take.
FACTORS = {"dev": 1, "asan": 4, "tsan": 10}

# Beside the options of the tests: with a real screen there are libraries that know no sanitizer.
# One copies strings out of a packet that no NUL ends; others wake threads by system calls, which
# must not pass for a race of theirs. What has been freed is not kept as long, so that growth shows.
BESIDE = {"asan": ("ASAN_OPTIONS", "strict_string_checks=0:quarantine_size_mb=32"),
    "tsan": ("TSAN_OPTIONS", "ignore_noninstrumented_modules=1")}

# What a sanitizer says when it has found something.
REPORT = re.compile(
    r"ERROR: \w+Sanitizer|WARNING: ThreadSanitizer|runtime error:|terminate called|Assertion")


def options():
    parser = argparse.ArgumentParser(prog="soak", description=__doc__.splitlines()[0])
    parser.add_argument("--minutes", type=float, default=10)
    parser.add_argument("--actions", type=int, help="stop after that many, if it comes first")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--preset", choices=FACTORS, default="dev",
        help="whose build is driven, in the environment of its tests")
    parser.add_argument("--limit", type=float, default=1.0,
        help="seconds the program has for an answer and to end")
    parser.add_argument("--factor", type=float,
        help="what that is multiplied by; by default 1, with asan %(asan)s and with tsan %(tsan)s"
            % FACTORS)
    parser.add_argument("--restart", type=float, default=5,
        help="minutes, in the mean, from one deliberate end to the next")
    parser.add_argument("--calm", type=float, default=1,
        help="minutes from one look at the memory to the next")
    parser.add_argument("--warm-up", type=float, default=5,
        help="minutes of each start that do not count as growth")
    parser.add_argument("--into", default=os.path.join(tempfile.gettempdir(), "lorivane-soak"),
        help="where what is wrong is written; exchanged by each soak")
    return parser.parse_args()


def prepare(chosen):
    """The environment of the preset's tests, which viewer_test takes the program from."""
    folder = "build" if chosen.preset == "dev" else f"build-{chosen.preset}"
    os.environ.setdefault("LORIVANE", os.path.join(ROOT, folder, "lorivane"))
    with open(os.path.join(ROOT, "CMakePresets.json"), encoding="utf-8") as file:
        presets = json.load(file)["testPresets"]
    for preset in presets:
        if preset["name"] == chosen.preset:
            for name, value in preset.get("environment", {}).items():
                os.environ.setdefault(name, value.replace("${sourceDir}", ROOT))
    if chosen.preset in BESIDE and INSIDE not in os.environ:
        name, value = BESIDE[chosen.preset]
        os.environ[name] += ":" + value


def inside(chosen):
    """Imported only on the screen of its own, with the environment as it is to be."""
    sys.path[:0] = [os.path.dirname(HERE), os.path.join(ROOT, "tools")]
    sys.dont_write_bytecode = True
    # The names and the order of a set would be others in each run.
    import accessibility
    import broadcast
    import drag
    import watchdog
    from album import Album
    from hands import Hands
    from viewer_test import PROGRAM, Viewer, x11
    from watchdog import Answers, Labels, Memory, Pinger, Stopped

    class Soak:
        program = PROGRAM

        def __init__(self):
            self.rng = random.Random(chosen.seed)
            self.limit = chosen.limit * (chosen.factor or FACTORS[chosen.preset])
            self.place = tempfile.mkdtemp(prefix="lorivane-soak-")
            self.settings = os.path.join(self.place, "settings")
            os.mkdir(self.settings)
            self.environment = {**os.environ, "HOME": self.place, "LC_ALL": "",
                "LANG": "en_US.UTF-8", "XDG_CONFIG_HOME": self.settings, "QT_QPA_PLATFORM": "xcb",
                "XDG_DATA_DIRS": self.place, "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}
            self.chatter = tempfile.TemporaryFile()
            self.screen, self.pinger, self.source = x11.Screen(), Pinger(), drag.Source()
            # A wheel turned beside the window would bring another desktop.
            x11.Window(self.screen, self.screen.root).ask("_NET_NUMBER_OF_DESKTOPS", 1)
            self.sender = broadcast.Sender()
            self.album = Album(self.place, self.rng)
            self.hands = Hands(self)
            self.viewer = self.reader = self.labels = self.memory = None
            self.begin, self.done, self.counts = time.monotonic(), deque(maxlen=50), Counter()
            self.pings, self.asked, self.ends = Answers(), Answers(), Answers()
            self.growths, self.peak, self.said, self.started = [], 0.0, Counter(), 0

        def start(self):
            """The program, alive and with its first picture on the way."""
            self.note("start")
            self.started += 1
            try:
                self.viewer = Viewer(self, [self.album.calm], self.environment, self.place)
                self.reader = accessibility.Reader(self.viewer)
                self.labels = Labels(self.sender, self.reader, self.viewer.window)
            except x11.Timeout as late:
                raise Stopped(f"it does not start: {late}") from None
            self.memory = Memory(self.viewer.process.pid)

        def note(self, told):
            self.done.append(f"{time.monotonic() - self.begin:9.3f} s  {told}")

        def check_report(self):
            """Only what has come since it was looked at the last time."""
            said = self.viewer.said()
            if REPORT.search(said):
                # A sanitizer's process ends by itself once its report is whole.
                try:
                    self.viewer.process.wait(30)
                except subprocess.TimeoutExpired:
                    pass
                raise Stopped("a sanitizer's report is in stderr.txt")

        def check_alive(self):
            """Its main thread answers, and nothing has been reported."""
            self.check_report()
            if not self.viewer.is_running():
                raise Stopped(f"it has ended by itself with {self.viewer.process.returncode}")
            took = self.pinger.ask(self.viewer.window, self.limit)
            if took is None and not self.viewer.is_running():
                self.check_report()
                raise Stopped(f"it has ended by itself with {self.viewer.process.returncode}")
            if took is None:
                self.stop_late("its main thread", lambda: self.pinger.ask(
                    self.viewer.window, 10 * self.limit))
            self.pings.add(took)

        def check_window(self):
            """The window's own thread answers, too."""
            self.hands.let_go_of_alerts()  # a window that asks something waits for the answer
            took = self.labels.ask(self.limit)
            if took is None:
                self.check_alive()
                self.stop_late("the window's thread", lambda: self.labels.ask(10 * self.limit))
            self.asked.add(took)

        def stop_late(self, who, again):
            stacks = self.stacks()
            later = again()
            self.late_stacks = stacks
            raise Stopped(f"{who} did not answer within {self.limit:g} s; " + (
                f"{later:.1f} s later it did" if later is not None
                else f"nor within {10 * self.limit:g} s more"))

        late_stacks = ""

        def stacks(self):
            """Of all threads, where there is a debugger."""
            if self.viewer is None or not self.viewer.is_running() or not shutil.which("gdb"):
                return ""
            return subprocess.run(["gdb", "-p", str(self.viewer.process.pid), "-batch", "-ex",
                "thread apply all backtrace 40"], stdin=subprocess.DEVNULL, capture_output=True,
                text=True, errors="replace", timeout=300, check=False).stdout

        def pause(self, seconds):
            end = time.monotonic() + seconds
            self.check_alive()
            while (left := end - time.monotonic()) > 0:
                time.sleep(min(left, 0.1))

        def end(self):
            way, start = self.hands.quit()
            self.note(f"quit by {way}")
            self.peak = max(self.peak, self.memory.peak() if self.viewer.is_running() else 0)
            try:
                status = self.viewer.process.wait(5 * self.limit)
            except subprocess.TimeoutExpired:
                self.late_stacks = self.stacks()
                raise Stopped(f"{way} does not end it") from None
            took = time.monotonic() - start
            said = self.viewer.said()
            if status != 0 or REPORT.search(said):
                raise Stopped(f"{way} ended it with {status}")
            if took > self.limit:
                raise Stopped(f"{way} took {took:.2f} s to end it")
            self.ends.add(took)
            self.said.update(line for line in said.splitlines() if line)
            growth = self.memory.growth(chosen.warm_up * 60)
            if growth is not None:
                self.growths.append((self.memory.samples[-1][0] / 60, growth))
            self.viewer.end()

        def calm(self):
            """As it was at the start: a small picture in a small window, and no dialogs."""
            self.note("calm")
            self.hands.reap(True)
            self.hands.settle()
            self.hands.front()
            if self.viewer.is_full_screen():
                self.viewer.key("Escape")
            for state in ("VERT", "HORZ"):
                self.viewer.window.ask_state("_NET_WM_STATE_MAXIMIZED_" + state, False)
            self.hands.hand_over(os.path.join(self.album.calm, "calm1.png"))
            self.hands.reap(True)
            self.hands.wait(lambda: self.viewer.title().startswith("calm1.png"),
                lambda: f"the calm picture is shown; {self.viewer.title()!r}")
            self.viewer.window.move_resize(100, 100, 500, 400)
            self.hands.wait(lambda: self.viewer.wait_idle() or True, "it has nothing left to do")
            at, rss, pss, threads, files = self.memory.sample()
            self.peak = max(self.peak, self.memory.peak())
            print(f"{(time.monotonic() - self.begin) / 60:7.2f} min: {sum(self.counts.values())} "
                f"actions, start {self.started}; after {at / 60:.1f} min RSS "
                f"{rss:.1f} MiB, PSS {pss:.1f} MiB, peak {self.memory.peak():.1f} MiB, "
                f"{threads} threads, {files} descriptors; answers at most "
                f"{self.pings.longest:.3f} s, {self.asked.longest:.3f} s", flush=True)

        def run(self):
            until = self.begin + chosen.minutes * 60
            self.start()
            ending = self.next(chosen.restart)
            calm = time.monotonic()
            while time.monotonic() < until:
                # Should the soak itself wait for ever, it says where.
                faulthandler.dump_traceback_later(600 + 60 * self.limit, exit=True)
                if time.monotonic() >= calm:
                    self.calm()
                    calm = time.monotonic() + chosen.calm * 60
                kind, told = self.hands.act()
                self.note(told)
                self.counts[kind] += 1
                self.check_alive()
                self.hands.reap()
                if self.rng.random() < 0.2:
                    self.check_window()
                if self.rng.random() < 0.3:
                    self.pause(self.rng.choice((0.02, 0.1, 0.4)))
                if time.monotonic() >= ending:
                    self.end()
                    self.start()
                    ending = self.next(chosen.restart)
                if chosen.actions and sum(self.counts.values()) >= chosen.actions:
                    break
            self.calm()
            self.end()

        def next(self, minutes):
            return time.monotonic() + self.rng.uniform(0.5, 1.5) * minutes * 60

        def save(self, reason):
            """What was wrong, and all that may tell why."""
            def write(name, text):
                with open(os.path.join(chosen.into, name), "w", encoding="utf-8") as file:
                    file.write(text)

            stacks = self.late_stacks or self.stacks()
            write("reason.txt", f"{reason}\nin or after {self.hands.doing!r}, seed {chosen.seed}, preset {chosen.preset}, "
                f"{os.environ['LORIVANE']}\n")
            write("actions.txt", "\n".join(self.done) + "\n")
            write("stderr.txt", self.viewer.said() if self.viewer else "")
            write("stacks.txt", stacks)
            focus = self.screen.display.get_input_focus().focus
            write("windows.txt", f"the keyboard is in {focus}\n" + "".join(
                f"{window.handle} {window.title()!r} of {window.pid()} at {window.frame()}: "
                f"{window.states()}\n" for window in self.screen.windows()))
            self.chatter.seek(0)
            write("second-starts.txt", self.chatter.read().decode("utf-8", "replace"))
            shutil.copytree(self.place, os.path.join(chosen.into, "place"), symlinks=True,
                ignore=lambda folder, names: [name for name in names if not os.path.islink(
                    os.path.join(folder, name)) and not os.path.isfile(os.path.join(folder, name))
                    and not os.path.isdir(os.path.join(folder, name))])
            import png
            picture = self.screen.picture(0, 0, 1280, 1024)
            with open(os.path.join(chosen.into, "screen.png"), "wb") as file:
                file.write(png.encode(1280, 1024, list(picture.rows())))

        def report(self):
            print(f"actions: {sum(self.counts.values())}")
            for kind, count in self.counts.most_common():
                print(f"    {kind}: {count}")
            print(f"the main thread answered {self.pings}")
            print(f"the window's thread answered {self.asked}")
            print(f"ends: {self.ends}; the limit was {self.limit:g} s")
            print(f"peak memory: {self.peak:.1f} MiB")
            for minutes, growth in self.growths:
                print(f"growth: {growth:+.1f} MiB an hour in a start of {minutes:.0f} min")
            if not self.growths:
                print("growth: not known, no start was long enough")
            for line, count in self.said.most_common(20):
                print(f"it said {count} times: {line[:200]}")

        def close(self):
            for start in self.hands.starts:
                start.kill()
                start.wait()
            if self.viewer is not None:
                self.viewer.end()
            shutil.rmtree(self.place, ignore_errors=True)

    shutil.rmtree(chosen.into, ignore_errors=True)
    os.makedirs(chosen.into)
    soak = Soak()
    watchdog.wait_on_the_bus(soak.limit * 5)
    try:
        soak.run()
        soak.report()
        print(f"passed: seed {chosen.seed}, {(time.monotonic() - soak.begin) / 60:.1f} min")
        return 0
    except Stopped as reason:
        soak.save(str(reason))
        soak.report()
        print(f"STOPPED: {reason}\n    seed {chosen.seed}; see {chosen.into}; the last actions:")
        print("\n".join(list(soak.done)[-10:]))
        return 1
    except Exception:
        soak.save("the soak itself failed:\n" + traceback.format_exc())
        raise
    finally:
        soak.close()


def main():
    chosen = options()
    prepare(chosen)
    if INSIDE not in os.environ:
        os.environ[INSIDE] = "1"
        os.environ["PYTHONHASHSEED"] = "0"
        desktop = os.path.join(ROOT, "tools", "virtual_desktop.sh")
        os.execv(desktop, [desktop, sys.executable, *sys.argv])
    sys.exit(inside(chosen))


if __name__ == "__main__":
    main()
