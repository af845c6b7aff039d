"""How it is found out whether a test notices."""
import os
import resource
import signal
import subprocess
import threading

import builds

LARGEST_MEMORY = 6 << 30
# Beyond this a program that waits for what never comes is ended.
LEAST_SECONDS = 20


class TestRun:
    """One way to start a test program, as ctest knows it, but with another program in its place."""

    def __init__(self, build, test):
        entry = build.tests[test]
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

    def fails(self, program, patience):
        """Ends with the first failure."""
        # A handler of crashes may wait for ever for what the crash left locked.
        command = [str(program) if word == self.original else word for word in self.command] + ["-nocrashhandler"]
        wait = None if self.seconds is None else patience * (LEAST_SECONDS + 5 * self.seconds)
        environment = self.environment if wait is None else {
            **self.environment, "QTEST_FUNCTION_TIMEOUT": str(int(wait * 1000))}
        with subprocess.Popen(command, cwd=self.folder, env=environment, preexec_fn=self.limit, start_new_session=True,
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT) as process:
            watchdog = threading.Timer(wait, end, [process]) if wait else None
            if watchdog:
                watchdog.start()
            for line in process.stdout:
                if line.startswith((b"FAIL!", b"XPASS")):
                    end(process)
                    return True
            status = process.wait()
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


def seconds_of_passed_tests(build):
    """How long the tests took that passed when ctest ran them last, those whose programs are no newer."""
    costs = build.folder / "Testing" / "Temporary" / "CTestCostData.txt"
    if not costs.exists():
        return {}
    passed, _, failed = costs.read_text().partition("---")
    rows = (line.split() for line in passed.splitlines())
    return {row[0]: float(row[2]) for row in rows if len(row) == 3 and row[0] not in failed.split()
            and row[1] != "0" and row[0] in build.tests and build.program_of(row[0])
            and (build.folder / build.program_of(row[0])).stat().st_mtime < costs.stat().st_mtime}


def judge(shop, mutant, tests, run_of, patience):
    """"noticed", "survives", or "does not build"."""
    try:
        shop.make(mutant)
        tried = 0
        for test in tests:
            program = shop.program(test, mutant)
            if program is None:
                continue
            tried += 1
            if run_of(test).fails(program, patience):
                return "noticed"
        return "survives" if tried else "is in no test"
    except builds.BuildError as error:
        if "ld returned" in str(error) or "multiple definition" in str(error):
            return "does not link"
        return "does not build"
    finally:
        shop.restore(mutant)
