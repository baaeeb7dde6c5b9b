# Sourced by run.sh: a folder in which the station can be tried out.

# prepare_folder FOLDER PROGRAM: the program folder is the folder of the executable, so the
# program is copied. A station file that is there stays.
prepare_folder() {
    local folder=$1 program=$2
    mkdir -p "$folder/settings"
    install -m 755 "$program" "$folder/quillane"
    [ -e "$folder/Station.ini" ] || cat >"$folder/Station.ini" <<END
[Station]
StationRole=Server
AskCompanyName=0

[CompanyNames]
1=Veltrane Flour Mills

[Ports]
1=$folder/scale
END
}
