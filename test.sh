#!/usr/bin/env bash
# Installs what is missing, builds everything and runs every test.
set -euo pipefail
cd "$(dirname "$0")"

usage() {
    cat <<'END'
./test.sh [options] [-- options for ctest]

  Builds the release preset and runs all tests: units, the recordset contract suite, screen
  tests off screen, and desktop tests with real keys on a display of their own.

  --preset NAME    build and test another preset: release (the default), debug, sanitize
  --no-desktop     leave out the tests that need a display server
  --only PATTERN   run the tests whose names match, for example --only Decoding
  --no-setup       do not look for missing packages
  --jobs N         at most N compilers and tests at once (default: the number of processors)
  --help           this text

  With a SQL Server named in tests/sqlserver.local (see README.md) the station's tests run on it
  too; without that file they are not registered.

  Ends with the summary of ctest; the exit code is 0 only when every test passed.
END
}

preset=release
setup=yes
jobs=$(nproc)
ctest_options=()
while [ $# -gt 0 ]; do
    case $1 in
    --preset) preset=${2:?--preset needs a name} && shift 2 ;;
    --only) ctest_options+=(--tests-regex "${2:?--only needs a pattern}") && shift 2 ;;
    --jobs) jobs=${2:?--jobs needs a number} && shift 2 ;;
    --no-desktop) ctest_options+=(--label-exclude desktop) && shift ;;
    --no-setup) setup=no && shift ;;
    --help | -h) usage && exit 0 ;;
    --) shift && ctest_options+=("$@") && break ;;
    *) echo "test.sh: unknown option $1 (see --help)" >&2 && exit 2 ;;
    esac
done

[ $setup = no ] || tools/setup/packages.sh build test
. tools/setup/build.sh
configure "$preset" -DQUILLANE_TESTS=ON
cmake --build "build/$preset" --parallel "$jobs"

# Leaks inside the system's font and toolkit libraries are not ours to mend.
export LSAN_OPTIONS="suppressions=$PWD/tools/setup/leaks.supp:print_suppressions=0"
export UBSAN_OPTIONS="print_stacktrace=1"
[ -e tests/sqlserver.local ] ||
    echo "No file tests/sqlserver.local names a SQL Server: its tests are left out."
ctest --test-dir "build/$preset" --output-on-failure --no-tests=error --parallel "$jobs" \
    "${ctest_options[@]}"
