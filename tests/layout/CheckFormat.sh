# Every C++ file that git tracks in the tree is laid out as .clang-format says, by the clang-format
# the tree is formatted with: Debian 12's clang-format-14, named with its version, since another
# version lays some lines out otherwise. Where it isn't installed, the test is skipped (77).
#
#   CheckFormat.sh <source folder>
set -uo pipefail
cd "$1" || exit 1

if ! command -v clang-format-14 >/dev/null; then
    echo "clang-format-14 isn't installed: the layout of the C++ files isn't checked"
    exit 77
fi

# The tracked files, as they stand in the work tree (a file deleted but not yet committed has gone);
# outside a git checkout, every C++ file but those of the build folders.
if git rev-parse --is-inside-work-tree >/dev/null 2>&1; then
    listed=$(git ls-files -- '*.h' '*.cpp')
else
    listed=$(find . -path './build*' -prune -o -type f \( -name '*.h' -o -name '*.cpp' \) -print)
fi
files=()
while IFS= read -r file; do
    [ -f "$file" ] && files+=("$file")
done <<<"$listed"
[ ${#files[@]} -eq 0 ] && exit 0

# Each line out of place is reported as an error with its file and line; the diff is
# `clang-format-14 -i <file>` away.
clang-format-14 --dry-run --Werror -- "${files[@]}"
