#!/usr/bin/env bash
# The keepers beside the tests: every file is formatted, and clang-tidy finds nothing in what was changed.
#
#   check.sh [--all]     --all looks for findings in every file, not in the changed ones alone
#
# The build in build/release tells how each file is compiled.
set -eu
cd "$(dirname "$0")/.."

mapfile -t files < <(find src tool bench tests -name '*.cpp' -o -name '*.h' | sort)
clang-format --dry-run --Werror "${files[@]}"

# Where the change began: it left main there, or, on main itself, it is the last commit.
base() {
  local main commit
  for main in origin/main main; do
    commit=$(git merge-base HEAD "$main" 2>/dev/null) || continue
    if [ "$commit" != "$(git rev-parse HEAD)" ]; then echo "$commit"; return; fi
  done
  git rev-parse --verify --quiet HEAD^1
}

# The files to compile that differ since then; a header is looked at with the file of its own name.
changed() {
  git diff --name-only --diff-filter=d "$(base)" -- 'src/*' 'tool/*' 'bench/*' | sed -n 's/\.\(cpp\|h\)$/.cpp/p' | sort -u
}

if [ "${1:-}" = --all ]; then
  mapfile -t looked < <(printf '%s\n' "${files[@]}" | grep -v '^tests/' | grep '\.cpp$')
else
  mapfile -t looked < <(changed)
fi
compiled=build/release/compile_commands.json
for i in "${!looked[@]}"; do
  grep -q "\"file\": .*/${looked[i]}\"" "$compiled" || unset "looked[i]"
done
[ ${#looked[@]} -eq 0 ] && exit
echo "clang-tidy: ${#looked[@]} arquivos" >&2
printf '%s\0' "${looked[@]}" | xargs -0 -n 1 -P "$(nproc)" clang-tidy -p build/release --quiet 2>/dev/null
