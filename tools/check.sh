#!/bin/sh
# What a change must pass before it is handed in: format, static analysis of the changed files, and the tests as CI
# runs them. `tools/check.sh --quick` leaves the tests out.
set -eu
cd "$(dirname "$0")/.."
git ls-files '*.cpp' '*.h' | xargs clang-format --dry-run --Werror
cmake --preset debug >/dev/null
if command -v clang-tidy >/dev/null; then
    base=$(git merge-base HEAD origin/main 2>/dev/null || git rev-list --max-parents=0 HEAD | tail -n 1)
    cmake --build --preset debug >/dev/null
    git diff --name-only --diff-filter=d "$base" -- 'src/*.cpp' | xargs -r clang-tidy -p build/debug --quiet
fi
[ "${1:-}" = --quick ] || tools/test.sh
