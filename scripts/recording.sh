# SPDX-License-Identifier: GPL-3.0-or-later
# Sourced by ./run: a rack for each recording and each radio, below one folder.

# read_words WORD...: takes format, rate and centre in any order into the variables format, rate and
# centre, in the units of hm-16.ini. Fails with one sentence.
read_words() {
  local word hz
  format= rate= centre=
  for word in "$@"; do
    case "${word,,}" in
      cu8 | cs8 | cs16 | cf32 | sigmf | wav | composite) format=${word,,}; continue ;;
    esac
    hz=$(number_in "$word") || {
      say "\"$word\" is no format (cu8, cs8, cs16, cf32, sigmf, wav, composite) and no number."
      return 1
    }
    # A centre is given in MHz or lies beyond every sample rate.
    if awk -v n="$hz" 'BEGIN { exit !(n < 6000) }'; then
      centre=$hz
    elif awk -v n="$hz" 'BEGIN { exit !(n > 25e6) }'; then
      centre=$(number_in "$(awk -v n="$hz" 'BEGIN { printf "%.6f", n / 1e6 }')")
    else
      rate=$hz
    fi
  done
}

# number_in WORD: 1.2e6, 2.4M and 98.2 as plain numbers. Fails where it is none.
number_in() {
  printf '%s\n' "$1" | LC_ALL=C awk '
    !/^[0-9]+(\.[0-9]*)?([eE][0-9]|[kKMG])?$/ { exit 1 }
    {
      scale = 1
      letter = substr($0, length($0))
      if (letter == "k" || letter == "K") scale = 1e3
      if (letter == "M") scale = 1e6
      if (letter == "G") scale = 1e9
      # awk itself reads what stands before the letter, a power of ten too.
      text = sprintf("%.6f", ($0 + 0) * scale)
      sub(/\.?0+$/, "", text)
      print text
    }'
}

# setting_of INI KEY: the value that the file sets, nothing where it sets none.
setting_of() {
  [ -r "$1" ] || return 0
  awk -v key="$2" '
    { sub(/\r$/, "") }
    { at = index($0, "="); name = substr($0, 1, at - 1); gsub(/[ \t]/, "", name) }
    at && name == key { value = substr($0, at + 1); gsub(/^[ \t]+|[ \t]+$/, "", value); print value; exit }
  ' "$1"
}

# set_key INI KEY VALUE: in the place of the line that sets the key, or of a comment that shows how,
# or at the end; all else in the file stays.
set_key() {
  local ini=$1
  KEY=$2 VALUE=$3 awk '
    function put() { if (!done) printf "%s = %s\r\n", ENVIRON["KEY"], ENVIRON["VALUE"]; done = 1 }
    { sub(/\r$/, "") }
    { at = index($0, "="); name = substr($0, 1, at - 1); gsub(/[ \t]/, "", name) }
    at && (name == ENVIRON["KEY"] || name == ";" ENVIRON["KEY"]) { put(); next }
    { printf "%s\r\n", $0 }
    END { put() }
  ' "$ini" >"$ini.part"
  mv -f "$ini.part" "$ini"
}

# folder_for PARENT KEY VALUE NAME: the folder below PARENT whose settings say so, or a new name for
# one.
folder_for() {
  local parent=$1 key=$2 value=$3 name=${4//[^A-Za-z0-9._-]/_} number=1 folder
  [ -n "${name//./}" ] || name=recording
  while :; do
    folder=$parent/$name
    [ "$number" -eq 1 ] || folder=$folder-$number
    if [ ! -e "$folder" ] || [ "$(setting_of "$folder/hm-16.ini" "$key")" = "$value" ]; then
      printf '%s\n' "$folder"
      return 0
    fi
    number=$((number + 1))
  done
}

# is_in_use FOLDER: a program holds it. Nothing in it is changed then.
is_in_use() {
  [ -d "$1" ] || return 1
  ! flock -n "$1" true
}

# lay_receiver TREE BUILD FOLDER KEY VALUE: the rack of a recording (KEY file) or a radio (KEY
# soapy_device), with format, rate and centre as read_words left them. A new folder comes into being
# whole or not at all, with the strongest stations in its memories; of one that was laid before only
# the program and what was named anew change.
lay_receiver() {
  local tree=$1 build=$2 folder=$3 key=$4 value=$5 new=$3.new source=recording
  [ "$key" = file ] || source=soapy
  if is_in_use "$folder"; then
    say "$folder is in use by another HMonitor; nothing in it was changed."
    return 1
  fi
  rm -rf "$new"
  if [ -e "$folder" ]; then
    mkdir -p "$new"
    cp "$folder/hm-16.ini" "$new/hm-16.ini"
    # Names in the settings count from their own folder.
    set_named "$new/hm-16.ini"
    if ! cmp -s "$folder/hm-16.ini" "$new/hm-16.ini"; then
      survey "$build" "$new/hm-16.ini" --check || { rm -rf "$new"; return 1; }
      mv -f "$new/hm-16.ini" "$folder/hm-16.ini"
    fi
    rm -rf "$new"
    lay_rack "$tree" "$build" "$folder" receiver
    said=$(setting_of "$folder/hm-16.ini" source)
    [ "$said" = "$source" ] ||
      say "$folder/hm-16.ini says source = $said; it stays so."
    return 0
  fi
  lay_rack "$tree" "$build" "$new" receiver
  set_key "$new/hm-16.ini" source "$source"
  set_key "$new/hm-16.ini" "$key" "$value"
  set_named "$new/hm-16.ini"
  [ "$source" = recording ] ||
    say "The band is gone over once, for stations to fill the memories with; a radio takes a while."
  survey "$build" "$new/hm-16.ini" --presets "$new/halden.dat" || { rm -rf "$new"; return 1; }
  mv "$new" "$folder"
}

# set_named INI: what read_words found.
set_named() {
  [ -z "$format" ] || set_key "$1" format "$format"
  [ -z "$rate" ] || set_key "$1" rate_hz "$rate"
  [ -z "$centre" ] || set_key "$1" centre_mhz "$centre"
}

# survey BUILD INI OPTION...: goes over the band. Where the recording lacks what a word behind it
# can tell, and only there, says how.
survey() {
  local build=$1 ini=$2 code=0
  shift 2
  "$build/receiver/hm16-survey" "$ini" "$@" >&2 || code=$?
  [ "$code" -ne 3 ] || say "Name it behind the file: ./run receiver FILE [FORMAT] [RATE] [CENTRE], as in ./run receiver FILE cu8 2.4M 98.2"
  return "$code"
}

# only_radio BUILD DRIVER: the device of the only radio that there is, of that driver where it is
# named.
only_radio() {
  local found count
  if ! found=$("$1/receiver/hm16-survey" --radios "$2"); then
    say "There is no radio${2:+ of driver $2}. Plug it in, and install SoapySDR with the module of your radio: soapysdr-module-rtlsdr, -airspy, -hackrf, -lms7, -uhd or, for every kind, soapysdr-module-all."
    return 1
  fi
  say "Radios:"
  say "$found"
  count=$(printf '%s\n' "$found" | wc -l)
  if [ "$count" -ne 1 ]; then
    say "Name the driver of one of them: ./run receiver DRIVER"
    return 1
  fi
  printf '%s\n' "${found%%$'\t'*}"
}
