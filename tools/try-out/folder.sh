# Sourced by run.sh: a folder in which the station can be tried out.

# prepare_folder FOLDER PROGRAM: the program is copied into the station's folder, so that it can be
# built while the station runs. A station file that is there stays.
prepare_folder() {
    local folder=$1 program=$2
    mkdir -p "$folder"
    install -d -m 700 "$folder/settings"
    install -m 755 "$program" "$folder/quillane"
    [ -e "$folder/Station.ini" ] || cat >"$folder/Station.ini" <<END
[Station]
StationRole=Server
AskCompanyName=0

[Ports]
1=$folder/scale
END
}

# start_indicator FOLDER: trucks drive on and off at the folder's serial line.
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
