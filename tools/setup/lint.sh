#!/usr/bin/env bash
# Runs clang-tidy with the checks of .clang-tidy over the program's sources.
#   tools/setup/lint.sh [files]      (default: every .cpp under src/)
set -euo pipefail
cd "$(dirname "$0")/../.."
command -v clang-tidy >/dev/null || { echo "lint.sh: clang-tidy is not installed" >&2; exit 1; }

# The commands of a build without precompiled headers, which clang cannot read. Nothing is built.
build=build/lint
. tools/setup/build.sh
configure release -B "$build" -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON -DQUILLANE_TESTS=OFF >/dev/null

# The parse errors of clang are ignored: Debian's version cannot parse the ranges of the newer standard
# library, and the compiler of the project reports real errors. Every finding is printed with the lines
# that follow it, and fails.
export findings='(warning|error): .*\[[a-z]+-[a-z-]*'
lint_file() {
    local report
    report=$(clang-tidy -p "$0" --quiet --extra-arg=-Wno-unknown-warning-option "$1" 2>/dev/null |
        grep -E -v '\[clang-diagnostic-error')
    ! grep -E -A3 "$findings" <<<"$report"
}
export -f lint_file

if [ $# -gt 0 ]; then printf '%s\0' "$@"; else
    git -c safe.directory='*' ls-files -z -- 'src/*.cpp'
fi | xargs -0 --max-args=1 --max-procs="$(nproc)" bash -c 'lint_file "$@"' "$build"
