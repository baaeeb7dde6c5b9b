#!/usr/bin/env bash
# Formats every tracked C++ file. With --check it only lists unformatted files, and fails if there are any.
set -euo pipefail
cd "$(dirname "$0")/../.."
case ${1:-} in
--check) options=(--dry-run -Werror) ;;
"") options=(-i) ;;
*) echo "usage: $0 [--check]" >&2 && exit 2 ;;
esac
git -c safe.directory='*' ls-files -z -- '*.cpp' '*.h' |
    xargs -0 --no-run-if-empty --max-args=40 --max-procs="$(nproc)" clang-format "${options[@]}"
