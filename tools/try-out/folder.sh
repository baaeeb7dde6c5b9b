# Sourced by run.sh: prepares a folder for trying out the station.

# prepare_folder FOLDER PROGRAMS: copies the programs from their folder into the station folder, so
# that they can be built while the station runs. An existing station file is kept.
prepare_folder() {
    local folder=$1 programs=$2
    mkdir -p "$folder"
    install -d -m 700 "$folder/settings"
    install -m 755 "$programs/quillane" "$programs/quillane-office" "$folder"
    [ -e "$folder/Station.ini" ] || cat >"$folder/Station.ini" <<END
[Station]
StationRole=Server
AskCompanyName=0

[Ports]
1=$folder/scale
END
}

# start_indicator FOLDER: simulates trucks on the serial line of the folder.
start_indicator() {
    local folder=$1
    : >"$folder/indicator.log"
    tools/indicator/indicator --link "$folder/scale" --scenario trucks --control \
        "$folder/indicator-commands" >"$folder/indicator.log" 2>&1 </dev/null &
    indicator=$!
    until grep -q '^ready' "$folder/indicator.log"; do
        kill -0 $indicator 2>/dev/null || { cat "$folder/indicator.log" >&2 && return 1; }
        sleep 0.05
    done
}

stop_indicator() {
    kill "$indicator" 2>/dev/null || true
    wait "$indicator" 2>/dev/null || true
}
