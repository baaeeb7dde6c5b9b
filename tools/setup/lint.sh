#!/usr/bin/env bash
# Runs clang-tidy with the checks of .clang-tidy over the program's sources.
#   tools/setup/lint.sh build/release [files]      (default: every .cpp under src/)
set -euo pipefail
cd "$(dirname "$0")/../.."
build=${1:?usage: $0 BUILD_FOLDER [files]}
shift
[ $# -gt 0 ] || mapfile -t -d '' files < <(git -c safe.directory='*' ls-files -z -- 'src/*.cpp')
[ $# -eq 0 ] || files=("$@")
printf '%s\0' "${files[@]}" |
    xargs -0 --max-args=1 --max-procs="$(nproc)" clang-tidy -p "$build" --quiet 2>/dev/null
