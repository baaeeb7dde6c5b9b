# Sourced by run.sh, test.sh and .ci/run.

# configure PRESET [cmake options]: configures build/PRESET quietly, using ccache where it is.
configure() {
    local preset=$1
    shift
    local launcher=
    command -v ccache >/dev/null && launcher=ccache
    cmake --preset "$preset" --log-level=NOTICE -DCMAKE_CXX_COMPILER_LAUNCHER=$launcher "$@"
}
