# clang-tidy over the whole tree: every file of Skelda's own that the build compiles, the tests'
# and the benchmarks' included (not the files the build generates), with the checks that
# .clang-tidy names, and the findings in the tree's headers that those files include. Any finding
# fails the run, with exit status 1.
#
#   python3 Tidy.py <build folder> [jobs]
#
# The build folder's compile_commands.json says what is compiled and how. clang-tidy is Debian
# 12's clang-tidy-14, named with its version like clang-format-14.
#
# Most of clang-tidy's time goes to the Qt and GoogleTest headers that every file includes: they
# are parsed, and every check is matched against them, once per file. So the files of one target
# (one library, test or benchmark: the same compile flags) are checked together, as one unit that
# includes them all, and a target's headers are read once. Files that can't stand in one unit
# (two helpers of the same name in anonymous namespaces, say) make the unit fail to compile; it
# is then halved, and each half checked as a unit, down to single files.
#
# A unit found clean is not looked at again while nothing that reaches it changes: its key is the
# hash of clang-tidy's version, the .clang-tidy files, the compile command, and the text of every
# file it reaches, headers included, as they stand, comments included (a NOLINT is a comment).
# What a file reaches is what it read when Ninja last built it (the build's log of dependencies)
# while none of those files has changed since; otherwise, or in a build of another generator,
# what the preprocessor reads now. The keys live in <build folder>/tidy-clean/; a unit with
# findings leaves no key, so that they are shown again on every run until they are fixed. The
# units are written to <build folder>/tidy-units/.
import concurrent.futures
import functools
import hashlib
import json
import os
import pathlib
import re
import shlex
import shutil
import subprocess
import sys

TIDY = "clang-tidy-14"
# The preprocessor's note of the file that the following lines come from.
LINE_MARKER = re.compile(rb'^# \d+ "([^"]+)"', re.MULTILINE)


def own_files(commands, tree, build):
    """The compile commands of the tree's own files, one per file, in the database's order."""
    seen = {}
    for entry in commands:
        path = pathlib.Path(entry["directory"], entry["file"]).resolve()
        if path.is_relative_to(tree) and not path.is_relative_to(build) and path not in seen:
            seen[path] = entry
    return seen


def arguments_of(entry):
    return shlex.split(entry["command"]) if "command" in entry else list(entry["arguments"])


def target_of(entry):
    """The target a compile command belongs to, from its object's folder (<target>.dir), and its
    flags: the command without the source file and the object."""
    arguments = arguments_of(entry)
    flags = []
    target = ""
    skip = False
    for argument in arguments:
        if skip:
            skip = False
            target = argument.split(".dir/")[0]
        elif argument == "-o":
            skip = True
        elif argument != "-c" and argument != entry["file"]:
            flags.append(argument)
    return target, tuple(flags)


def units(files):
    """The files in units of one target each, as (target, its flags, its files)."""
    groups = {}
    for path, entry in files.items():
        groups.setdefault(target_of(entry), []).append((path, entry))
    return [(target, flags, members) for (target, flags), members in groups.items()]


def unit_file(target, flags, members, build):
    """The file to check for some files of one target, and its compile command: the file itself
    for one, else a unit in <build>/tidy-units/ that includes them all."""
    if len(members) == 1:
        return members[0]
    name = target.replace("/", "_")
    if len(members) < len(files_of_target.get(target, ())):
        name += "-" + hashlib.sha256("".join(str(path) for path, _ in members).encode()).hexdigest()[:8]
    unit = build / "tidy-units" / (name + ".cpp")
    text = "".join(f'#include "{path}"  // NOLINT(bugprone-suspicious-include)\n' for path, _ in members)
    if not unit.exists() or unit.read_text() != text:
        unit.parent.mkdir(exist_ok=True)
        unit.write_text(text)
    return unit, {"directory": members[0][1]["directory"], "file": str(unit),
                  "arguments": list(flags) + ["-c", str(unit)]}


files_of_target = {}


def preprocessed(entry):
    """The file as the build's own compiler preprocesses it, headers included, or None."""
    arguments = arguments_of(entry)
    kept = []
    skip = False
    for argument in arguments:
        if skip:
            skip = False
        elif argument == "-o":
            skip = True
        elif argument != "-c":
            kept.append(argument)
    done = subprocess.run(kept + ["-E", "-o", "-"], cwd=entry["directory"], capture_output=True)
    return done.stdout if done.returncode == 0 else None


@functools.lru_cache(maxsize=None)
def own_text(path):
    return path.read_bytes()


def key_of(entry, reached, salt):
    """The hash of what decides clang-tidy's findings in one unit: the settings, the compile
    command, and every file the unit reaches, as it stands now, comments included."""
    digest = hashlib.sha256(salt)
    digest.update(json.dumps(entry, sort_keys=True).encode())
    for path in sorted(reached):
        digest.update(str(path).encode() + b"\0" + own_text(path))
    return digest.hexdigest()


def ninja_deps(build):
    """What each object of the build read when it was last compiled, from Ninja's log of
    dependencies, as {object: [paths]}; empty where the build isn't Ninja's."""
    try:
        done = subprocess.run(["ninja", "-C", str(build), "-t", "deps"], capture_output=True, text=True)
    except OSError:
        return {}
    deps = {}
    current = None
    for line in done.stdout.splitlines():
        if not line.strip():
            continue
        if not line.startswith(" "):
            name, _, state = line.partition(": #deps")
            current = [] if state.endswith("(VALID)") else None
            if current is not None:
                deps[name] = current
        elif current is not None:
            current.append(line.strip())
    return deps


@functools.lru_cache(maxsize=None)
def modified(path):
    try:
        return path.stat().st_mtime
    except OSError:
        return None


def changed_since(path, moment):
    when = modified(path)
    return when is None or when > moment


def object_of(entry):
    arguments = arguments_of(entry)
    return arguments[arguments.index("-o") + 1] if "-o" in arguments else None


def reached_by(entry, members, deps):
    """The files that the unit reaches: those its files read when the build last compiled them,
    while no file is newer than its object; else those the preprocessor reads now. None when
    neither can tell."""
    reached = set()
    for path, member in members:
        folder = pathlib.Path(member["directory"])
        target = object_of(member)
        listed = deps.get(target) if target else None
        built = folder / target if target else None
        if listed is None or not built.exists():
            reached = None
            break
        read = {(folder / name).resolve() for name in listed}
        if any(changed_since(name, built.stat().st_mtime) for name in read):
            reached = None
            break
        reached |= read
    if reached is not None:
        return reached
    text = preprocessed(entry)
    if text is None:
        return None
    names = set(LINE_MARKER.findall(text))
    found = {pathlib.Path(entry["directory"], os.fsdecode(name)).resolve() for name in names}
    return {path for path in found if path.is_file()}


def tidy(path, entry, header_filter):
    """clang-tidy's findings in one file or unit, given its compile command, or None when it
    didn't compile."""
    flags = [argument for argument in arguments_of(entry)[1:] if argument not in ("-c", str(path), entry["file"])]
    if "-o" in flags:
        at = flags.index("-o")
        del flags[at:at + 2]
    done = subprocess.run([TIDY, "--quiet", "--header-filter=" + header_filter, str(path), "--"] + flags,
                          cwd=entry["directory"], capture_output=True, text=True)
    # clang-tidy always says how many warnings the compiler made, most of them in the system's
    # headers and not shown: that count says nothing.
    noise = [line for line in done.stderr.splitlines() if not line.endswith(" generated.")]
    report = done.stdout + "".join(line + "\n" for line in noise)
    if done.returncode == 0 and "warning:" not in report and "error:" not in report:
        return ""
    return report or f"{path}: clang-tidy ended with status {done.returncode}\n"


def check(target, flags, members, build, deps, header_filter, salt, clean):
    """Runs clang-tidy on some files of one target, as one unit, unless its key says it was found
    clean; a unit that doesn't compile as one is halved, down to single files. Gives the keys of
    what is clean, the findings, and whether a key spared the run."""
    path, entry = unit_file(target, flags, members, build)
    reached = reached_by(entry, members, deps)
    key = key_of(entry, reached, salt) if reached is not None else None
    if key and (clean / key).exists():
        return [key], "", True
    report = tidy(path, entry, header_filter)
    if not report:
        if key:
            (clean / key).touch()
        return [key] if key else [], "", False
    if len(members) == 1 or "error:" not in report:
        return [], report, False
    keys, reports = [], []
    half = len(members) // 2
    for part in (members[:half], members[half:]):
        part_keys, part_report, _ = check(target, flags, part, build, deps, header_filter, salt, clean)
        keys += part_keys
        reports.append(part_report)
    return keys, "".join(reports), False


def settings(tree, build):
    """The text of every .clang-tidy of the tree, build folders aside."""
    found = []
    for folder, subfolders, names in os.walk(tree):
        subfolders[:] = sorted(name for name in subfolders
                               if not name.startswith((".git", "build")) and pathlib.Path(folder, name) != build)
        if ".clang-tidy" in names:
            found.append(folder + "\n" + pathlib.Path(folder, ".clang-tidy").read_text())
    return "".join(found)


def main():
    if not shutil.which(TIDY):
        print(f"{TIDY} isn't installed: sudo apt-get install {TIDY}", file=sys.stderr)
        return 1
    build = pathlib.Path(sys.argv[1]).resolve()
    jobs = int(sys.argv[2]) if len(sys.argv) > 2 else os.cpu_count()
    tree = pathlib.Path(__file__).resolve().parents[2]
    commands = json.loads((build / "compile_commands.json").read_text())
    files = own_files(commands, tree, build)
    # The headers of the folders that hold the compiled files; the build folder's are generated.
    folders = sorted({path.relative_to(tree).parts[0] for path in files})
    header_filter = "^" + str(tree) + "/(" + "|".join(folders) + ")/"
    version = subprocess.run([TIDY, "--version"], capture_output=True, text=True, check=True).stdout
    salt = (version + settings(tree, build) + header_filter).encode()

    print(f"clang-tidy: {len(files)} files of {', '.join(folders)}", flush=True)
    clean = build / "tidy-clean"
    clean.mkdir(exist_ok=True)
    used = set()
    failed = 0
    cached = 0
    # The largest units first, so that the last to finish are short ones.
    todo = sorted(units(files), key=lambda unit: -len(unit[2]))
    files_of_target.update((target, members) for target, _, members in todo)
    deps = ninja_deps(build)
    with concurrent.futures.ThreadPoolExecutor(max_workers=jobs) as pool:
        runs = [pool.submit(check, target, flags, members, build, deps, header_filter, salt, clean)
                for target, flags, members in todo]
        for run in concurrent.futures.as_completed(runs):
            keys, report, from_cache = run.result()
            used.update(keys)
            cached += from_cache
            if report:
                failed += 1
                sys.stdout.write(report)
                sys.stdout.flush()
    # Keys of files that have changed since would never match again.
    for stale in clean.iterdir():
        if stale.name not in used:
            stale.unlink()
    print(f"clang-tidy: {len(files)} files in {len(todo)} units, {cached} unchanged since found clean, "
          f"{failed} with findings")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
