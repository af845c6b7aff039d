"""How it is found out whether a test notices."""
import os
import pathlib
import resource
import signal
import subprocess
import threading

import builds
import sources

LARGEST_MEMORY = 6 << 30
# Beyond this a program that waits for what never comes is ended.
LEAST_SECONDS = 10
# A program that takes longer is not run as a whole at once.
LONG_SECONDS = 2


class TestRun:
    """One way to start a test program, as ctest knows it, but with another program in its place."""

    def __init__(self, build, test):
        self.name, entry = test, build.tests[test]
        properties = {item["name"]: item["value"] for item in entry.get("properties", [])}
        self.command = entry["command"]
        self.original = str(build.folder / build.program_of(test))
        self.folder = properties.get("WORKING_DIRECTORY")
        self.environment = {**os.environ, **dict(item.split("=", 1) for item in properties.get("ENVIRONMENT", []))}
        self.seconds = None

    def limit(self):
        resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
        if self.seconds is not None:
            seconds = int(5 + 3 * self.seconds)
            resource.setrlimit(resource.RLIMIT_CPU, (seconds, seconds))
            resource.setrlimit(resource.RLIMIT_AS, (LARGEST_MEMORY, LARGEST_MEMORY))

    def fails(self, program, patience, classes=()):
        """Ends with the first failure. With classes, these alone are run."""
        # A handler of crashes may wait for ever for what the crash left locked.
        command = [str(program) if word == self.original else word for word in self.command] + ["-nocrashhandler"]
        wait = None if self.seconds is None else patience * (LEAST_SECONDS + 5 * self.seconds)
        environment = dict(self.environment)
        if wait is not None:
            environment["QTEST_FUNCTION_TIMEOUT"] = str(int(wait * 1000))
        if classes:
            environment["ROOM_TEST_CLASS"] = " ".join(classes)
        with subprocess.Popen(command, cwd=self.folder, env=environment, preexec_fn=self.limit, start_new_session=True,
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT) as process:
            watchdog = threading.Timer(wait, end, [process]) if wait else None
            try:
                if watchdog:
                    watchdog.start()
                if any(line.startswith((b"FAIL!", b"XPASS")) for line in process.stdout):
                    end(process)
                    return True
                status = process.wait()
            finally:
                if watchdog:
                    watchdog.cancel()
        return status != 0

    def measure(self):
        """Lets the unchanged program say how much computing time a mutant may need. False when it fails."""
        before = resource.getrusage(resource.RUSAGE_CHILDREN).ru_utime
        failed = self.fails(self.original, 1)
        self.seconds = resource.getrusage(resource.RUSAGE_CHILDREN).ru_utime - before
        return not failed


def end(process):
    """The program and its display, which is what the signal to the first of them brings about."""
    try:
        os.killpg(process.pid, signal.SIGTERM)
        process.wait(10)
        os.killpg(process.pid, signal.SIGKILL)
    except subprocess.TimeoutExpired:
        os.killpg(process.pid, signal.SIGKILL)
    except ProcessLookupError:
        pass


def is_older(program, costs):
    return program.exists() and program.stat().st_mtime < costs.stat().st_mtime


def seconds_of_passed_tests(build):
    """How long the tests took that passed when ctest ran them last, those whose programs are no newer."""
    costs = build.folder / "Testing" / "Temporary" / "CTestCostData.txt"
    if not costs.exists():
        return {}
    passed, _, failed = costs.read_text().partition("---")
    rows = (line.split() for line in passed.splitlines())
    return {row[0]: float(row[2]) for row in rows if len(row) == 3 and row[0] not in failed.split()
            and row[1] != "0" and row[0] in build.tests and build.program_of(row[0])
            and is_older(build.folder / build.program_of(row[0]), costs)}


def in_turn(classes, stem):
    """The classes of a long program as they are asked one after the other: most mutants are noticed by those that bear
    the name of the file, and what takes longest comes last."""
    last = [name for name in classes if name in sources.LONG_CLASSES]
    first = [name for name in classes if name.startswith(stem) and name not in last]
    return [part for part in (first, [name for name in classes if name not in first + last], last) if part]


def stages(shop, mutant, tests, run_of):
    """(program, how it is run, classes) of what is run one after the other. Without classes all of them are meant."""
    for test in sources.WINDOW_TESTS:
        if test in tests and "<tabstop>" in mutant.replacement and (program := shop.program(test, mutant)):
            yield program, run_of(test), sources.TAB_FUNCTIONS
    for test in tests:
        program = shop.program(test, mutant)
        if program is None:
            continue
        run = run_of(test)
        classes = shop.build.classes_of(test) if run.seconds > LONG_SECONDS else []
        for part in in_turn(classes, pathlib.PurePath(mutant.path).stem) or [()]:
            yield program, run, part


def judge(shop, mutant, tests, run_of, patience):
    """"noticed", "survives", or why it cannot be tried; and the test that noticed it."""
    try:
        shop.make(mutant)
        tried = 0
        for program, run, classes in stages(shop, mutant, tests, run_of):
            tried += 1
            if run.fails(program, patience, classes):
                return "noticed", run.name
        return "survives" if tried else "is in no test", None
    except builds.BuildError as error:
        if "ld returned" in str(error) or "multiple definition" in str(error):
            return "does not link", None
        return "does not build", None
    finally:
        shop.restore(mutant)
