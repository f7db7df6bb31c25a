# SPDX-License-Identifier: GPL-3.0-or-later
# Sourced by ./run: points the receiver of a rack at a recording.

# set_recording INI FILE [RATE_HZ] [CENTRE_MHZ]: what the settings say about another recording does
# not hold for this one; all else in them stays.
set_recording() {
  local ini=$1 file=$2 rate=${3:-} centre=${4:-} line key known=
  while IFS= read -r line || [ -n "$line" ]; do
    [ "$(setting_of "${line%$'\r'}" file)" = "$file" ] && known=yes
  done <"$ini"
  while IFS= read -r line || [ -n "$line" ]; do
    line=${line%$'\r'}
    key=${line%%=*}
    key=${key//[[:space:]]/}
    case "$key" in
      file | source | ";file") continue ;;
      rate_hz) [ -z "$known" ] || [ -n "$rate" ] && line=";$line" ;;
      centre_mhz) [ -z "$known" ] || [ -n "$centre" ] && line=";$line" ;;
      format) [ -n "$known" ] || line=";$line" ;;
    esac
    printf '%s\r\n' "$line"
  done <"$ini" >"$ini.new"
  {
    printf 'source = recording\r\nfile = %s\r\n' "$file"
    [ -z "$rate" ] || printf 'rate_hz = %s\r\n' "$rate"
    [ -z "$centre" ] || printf 'centre_mhz = %s\r\n' "$centre"
  } >>"$ini.new"
  mv -f "$ini.new" "$ini"
}

# setting_of LINE KEY: the value, if the line sets this key.
setting_of() {
  local value=${1#*=}
  local key=${1%%=*}
  [ "${key//[[:space:]]/}" = "$2" ] && [ "$value" != "$1" ] || return 0
  value=${value#"${value%%[![:space:]]*}"}
  printf '%s' "${value%"${value##*[![:space:]]}"}"
}

# strongest_station RACK: its frequency in MHz. Fails, with the receiver's own sentence on standard
# error, where the recording cannot be measured.
strongest_station() {
  local rack=$1 levels
  levels=$(cd "$rack" && ./hm16-probe . levels --step 100 --files Logs) || return 1
  # A strong station fills several channels; it stands in their middle.
  printf '%s\n' "$levels" | awk -F, '
    NR > 1 { mhz[NR] = $2; level[NR] = $3; if ($3 > most) most = $3 }
    END {
      for (n = 2; n <= NR; ++n) if (level[n] >= most - 1) break
      for (last = n; last < NR && level[last + 1] >= most - 1; ++last);
      if (most > 0) print mhz[int((n + last) / 2)]
    }'
}

# set_first_memory RACK NAME MHZ: the station with which the rack starts.
set_first_memory() {
  local tenths
  tenths=$(awk -v mhz="$3" 'BEGIN { printf "%.0f", mhz * 10 }')
  printf -- '-%-9.9s-%-5.5s' "$2" "$tenths" |
    dd of="$1/halden.dat" bs=1 seek=16 conv=notrunc status=none
}
