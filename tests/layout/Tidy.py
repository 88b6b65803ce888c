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
# A file found clean is not looked at again while nothing that reaches it changes: its key is the
# hash of clang-tidy's version, the .clang-tidy files, the compile command and the file as the
# preprocessor gives it, with every header it includes, and the text of the tree's files among
# them as they stand, comments included (a NOLINT is a comment). The keys live in <build
# folder>/tidy-clean/; a file with findings leaves no key, so that they are shown again on every
# run until they are fixed.
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


def preprocessed(entry):
    """The file as the build's own compiler preprocesses it, headers included, or None."""
    arguments = shlex.split(entry["command"]) if "command" in entry else list(entry["arguments"])
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


def key_of(entry, text, tree, salt):
    """The hash of what decides clang-tidy's findings in one file: the settings, the compile
    command, the preprocessed text, and the files of the tree that it reaches, comments included."""
    digest = hashlib.sha256(salt)
    digest.update(json.dumps(entry, sort_keys=True).encode())
    digest.update(text)
    names = set(LINE_MARKER.findall(text))
    reached = {pathlib.Path(entry["directory"], os.fsdecode(name)).resolve() for name in names}
    for path in sorted(path for path in reached if path.is_relative_to(tree) and path.is_file()):
        digest.update(str(path).encode() + b"\0" + own_text(path))
    return digest.hexdigest()


def check(path, entry, tree, build, header_filter, salt, clean):
    """Runs clang-tidy on one file unless its key says it was found clean. Gives the file's key
    when it is clean (None when it isn't, or has no key), the findings, and whether the key
    spared the run."""
    text = preprocessed(entry)
    key = None
    if text is not None:
        key = key_of(entry, text, tree, salt)
        if (clean / key).exists():
            return key, "", True
    done = subprocess.run([TIDY, "-p", str(build), "--quiet", "--header-filter=" + header_filter, str(path)],
                          capture_output=True, text=True)
    # clang-tidy always says how many warnings the compiler made, most of them in the system's
    # headers and not shown: that count says nothing.
    noise = [line for line in done.stderr.splitlines() if not line.endswith(" generated.")]
    report = done.stdout + "".join(line + "\n" for line in noise)
    if done.returncode == 0 and "warning:" not in report and "error:" not in report:
        if key:
            (clean / key).touch()
        return key, "", False
    return None, report or f"{path}: clang-tidy ended with status {done.returncode}\n", False


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
    with concurrent.futures.ThreadPoolExecutor(max_workers=jobs) as pool:
        runs = [pool.submit(check, path, entry, tree, build, header_filter, salt, clean)
                for path, entry in files.items()]
        for run in concurrent.futures.as_completed(runs):
            key, report, from_cache = run.result()
            if key:
                used.add(key)
            cached += from_cache
            if report:
                failed += 1
                sys.stdout.write(report)
                sys.stdout.flush()
    # Keys of files that have changed since would never match again.
    for stale in clean.iterdir():
        if stale.name not in used:
            stale.unlink()
    print(f"clang-tidy: {len(files)} files, {cached} unchanged since found clean, {failed} with findings")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
