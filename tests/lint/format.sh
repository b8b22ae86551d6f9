#!/bin/sh
# Every source file is as clang-format would write it.
set -eu
cd "$1"
find src tests bench -name '*.cpp' -o -name '*.h' | xargs clang-format --dry-run --Werror
