"""How a mutant becomes a test program: only what its file is compiled into is compiled anew, and linked in front of the
libraries of an existing build, which stay as they are."""
import collections
import functools
import json
import os
import pathlib
import re
import shlex
import shutil
import subprocess

import sources

WORK = sources.ROOT / "build" / "mutants"

QUICK_LINKER = ["-fuse-ld=lld"] if shutil.which("ld.lld") else []
# What leaves an array ends the program, as it does in the run with the sanitizers.
CHECKS = ["-D_GLIBCXX_ASSERTIONS", "-fsanitize=bounds,signed-integer-overflow", "-fsanitize-undefined-trap-on-error"]
MODULE = "module/libroomadjustment2g.so"
ASKS_FOR_THE_MODULE = b"_ZN10BuiltFiles6moduleEv"

INCLUDED = re.compile(r'^#include "([^"]+)"', re.MULTILINE)
SETS_UP = re.compile(r"\b(?:setupUi|retranslateUi)\(")

Object = collections.namedtuple("Object", "path source command")


class BuildError(Exception):
    """The mutant does not compile."""


class Build:
    """What CMake and ninja know about a configured and built tree."""

    def __init__(self, preset):
        self.folder = sources.ROOT / "build" / preset
        self.objects = {}
        for entry in json.loads((self.folder / "compile_commands.json").read_text()):
            command = shlex.split(entry["command"])
            path = command[command.index("-o") + 1]
            self.objects[path] = Object(path, pathlib.Path(entry["file"]), command)
        self.tests = {entry["name"]: entry for entry in self.listed_tests() if "command" in entry}
        self.users = self.users_of_files()

    def listed_tests(self):
        listed = subprocess.run(["ctest", "--test-dir", self.folder, "--show-only=json-v1"], capture_output=True, check=True)
        return json.loads(listed.stdout)["tests"]

    def users_of_files(self):
        """The objects that each file of ours was compiled into."""
        users, current = collections.defaultdict(set), None
        listed = subprocess.run(["ninja", "-C", self.folder, "-t", "deps"], capture_output=True, check=True).stdout
        for line in listed.decode().splitlines():
            if line.startswith("    ") and not line.startswith("    /usr/"):
                users[os.path.normpath(self.folder / line.strip())].add(current)
            elif line and not line.startswith(" "):
                current = line.split(": #deps", 1)[0]
        return users

    def program_of(self, test):
        """The program of a test, relative to the build."""
        for word in self.tests[test]["command"]:
            if word.startswith(f"{self.folder}/"):
                return os.path.relpath(word, self.folder)
        return None

    @functools.lru_cache(maxsize=None)
    def link_of(self, output):
        """How something is linked: the words of the command."""
        listed = subprocess.run(["ninja", "-C", self.folder, "-t", "commands", output], capture_output=True, check=True)
        words = shlex.split(listed.stdout.decode().splitlines()[-1])
        return [word for word in words if word not in (":", "&&")]

    @functools.lru_cache(maxsize=None)
    def parts_of(self, output):
        """The objects that are linked, or that lie in a library that is."""
        parts = set()
        for word in self.link_of(output):
            if word.endswith(".o"):
                parts.add(word)
            elif word.endswith(".a") and not word.startswith("/"):
                library = pathlib.PurePath(word)
                inside = f"{library.parent}/CMakeFiles/{library.stem.removeprefix('lib')}.dir/"
                parts.update(path for path in self.objects if path.startswith(inside))
        return parts

    @functools.lru_cache(maxsize=None)
    def module_named_in(self, output):
        """The object that names the module's library, in a program that asks it for that."""
        parts = {name for name in self.parts_of(output) if name.startswith("tests/")}
        named = {name for name in parts
                 if any(word.startswith("-DMODULE_LIBRARY=") for word in self.objects[name].command)}
        asked = any(ASKS_FOR_THE_MODULE in (self.folder / name).read_bytes() for name in parts - named)
        return named if asked else set()

    def classes_of(self, test):
        """The test classes of a program: each has a source with its name."""
        stems = {source.stem for part in self.parts_of(self.program_of(test)) for source in self.sources_in(part)}
        return sorted(stem for stem in stems if stem.endswith("Test"))

    def sources_in(self, path):
        """What an object is compiled from: its source, or those that are put together in it."""
        source = self.objects[path].source
        return [pathlib.Path(name) for name in INCLUDED.findall(source.read_text())] if "/Unity/" in str(source) else [source]

    def compiled_from(self, path):
        """The objects in which a file's text is. What the generators write only declares, but calls the slots of the
        folder's own headers. What a form says is in the one that sets it up: the others only know its widgets, or
        are linked behind it and take over what it says."""
        users = {name for name in self.users[str(self.header_of(path))] if name in self.objects}
        generated = {name for name in users if "_autogen/" in str(self.objects[name].source)}
        own = {name for name in generated if path.endswith(".h") and name.startswith(f"{sources.folder_of(path)}/")}
        users = users - generated | own
        if path.endswith(".ui"):
            users = {name for name in users if not name.startswith("tests/")
                     and SETS_UP.search(self.objects[name].source.read_text())}
        return users

    def header_of(self, path):
        """The file itself, or the header that is generated from a form."""
        if not path.endswith(".ui"):
            return sources.ROOT / path
        name = f"ui_{pathlib.PurePath(path).stem}.h"
        return next((pathlib.Path(file) for file in self.users if file.endswith("/" + name)), sources.ROOT / path)

    @functools.cached_property
    def uic(self):
        return next(iter(shutil.which(name) for name in ("uic", "uic-qt5") if shutil.which(name)),
                    "/usr/lib/qt5/bin/uic")


class Workshop:
    """A copy of the sources in which one mutant at a time is made, and what is built from it."""

    def __init__(self, build, name):
        self.build = build
        self.folder = WORK / name
        shutil.rmtree(self.folder, ignore_errors=True)
        for tree in ("src", "bench"):
            shutil.copytree(sources.ROOT / tree, self.folder / tree)
        self.forms = self.folder / "forms"
        self.forms.mkdir()
        self.module = self.folder / "libroomadjustment2g.so"
        self.compiled = {}

    def make(self, mutant):
        """Puts the mutant in its place; what was built from the one before is forgotten."""
        self.compiled = {}
        (self.folder / mutant.path).write_text(mutant.changed(sources.text_of(mutant.path)))
        if mutant.path.endswith(".ui"):
            self.run([self.build.uic, "-o", self.forms / f"ui_{pathlib.PurePath(mutant.path).stem}.h",
                      self.folder / mutant.path], sources.ROOT)

    def restore(self, mutant):
        (self.folder / mutant.path).write_text(sources.text_of(mutant.path))
        for form in self.forms.iterdir():
            form.unlink()

    def program(self, test, mutant):
        """Links the test with the mutant, and the module first when the test loads it. None: neither has it inside."""
        output = self.build.program_of(test)
        loads = self.build.module_named_in(output)
        changed = self.build.compiled_from(mutant.path)
        if loads and changed & self.build.parts_of(MODULE):
            self.link(MODULE, changed & self.build.parts_of(MODULE), self.module)
        elif not changed & self.build.parts_of(output):
            return None
        program = self.folder / pathlib.PurePath(output).name
        self.link(output, changed & self.build.parts_of(output) | loads, program)
        return program

    def link(self, output, objects, target):
        mine = {name: self.compile(name) for name in sorted(objects)}
        words, result = self.build.link_of(output), []
        for place, word in enumerate(words):
            if place > 0 and words[place - 1] == "-o":
                word = str(target)
            result.append(mine.pop(word, word))
        # In front of all others: what stands there is not looked for in the libraries, and wins over the copies of
        # inline functions.
        self.run([result[0], *mine.values(), *result[1:], *QUICK_LINKER], self.build.folder)

    def compile(self, name):
        if name not in self.compiled:
            target = str(self.folder / name.replace("/", "_"))
            source = self.build.objects[name].source
            if "_autogen/" in str(source):
                self.bring(source.parent)
            command = [self.adapted(word) for word in self.build.objects[name].command]
            command[command.index("-o") + 1] = target
            self.run([command[0], f"-I{self.forms}", *command[1:], "-w", *self.quickly(name)], self.build.folder)
            self.compiled[name] = target
        return self.compiled[name]

    def bring(self, generated):
        """What was generated finds the headers by ways relative to its own place."""
        shutil.copytree(generated, self.folder / generated.relative_to(sources.ROOT), dirs_exist_ok=True)

    def quickly(self, name):
        """The tests bring their own level, which their precompiled header has, too."""
        return [] if name.startswith("tests/") else ["-O1", *CHECKS]

    def adapted(self, word):
        if word.startswith("-DMODULE_LIBRARY="):
            return f'-DMODULE_LIBRARY="{self.module}"'
        if "_autogen/" in word and not word.startswith("-I"):
            return word.replace(f"{sources.ROOT}/", f"{self.folder}/")
        for tree in ("src", "bench"):
            word = word.replace(f"{sources.ROOT}/{tree}/", f"{self.folder}/{tree}/")
        return word

    def run(self, command, folder):
        result = subprocess.run([*map(str, command)], cwd=folder, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)
        if result.returncode:
            raise BuildError(result.stderr.decode(errors="replace"))
