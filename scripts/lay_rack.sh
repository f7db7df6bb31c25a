# SPDX-License-Identifier: GPL-3.0-or-later
# Sourced. lay_rack TREE BUILD FOLDER UNIT: assembles what runs in the folder; the working folder's
# first contents never go over an existing file. Logs of three days are laid for the simulated unit
# alone, and only into a folder that has none.

has_logs() {
  local found
  found=$(find "$1" -maxdepth 1 -iname '*.log' -print -quit)
  [ -n "$found" ]
}

lay_rack() {
  local tree=$1 build=$2 folder=$3 unit=$4 file
  mkdir -p "$folder/Logs"
  cp -f "$build/app/hmonitor" "$folder/hmonitor.new" && mv -f "$folder/hmonitor.new" "$folder/hmonitor"
  local library=$build/drivers/simulated/hm-16.so
  [ "$unit" = receiver ] && library=$build/receiver/hm-16.so
  cp -f "$build/drivers/host/hm16-host" "$folder/hm16-host.new" &&
    mv -f "$folder/hm16-host.new" "$folder/hm16-host"
  # The program loads no library that others may write.
  cp -f "$library" "$folder/hm-16.so.new" && chmod 755 "$folder/hm-16.so.new" &&
    mv -f "$folder/hm-16.so.new" "$folder/hm-16.so"
  cp -f "$build/drivers/probe/hm16-probe" "$folder/hm16-probe.new" &&
    mv -f "$folder/hm16-probe.new" "$folder/hm16-probe"
  if [ "$unit" = receiver ] && [ ! -e "$folder/hm-16.ini" ]; then
    cp "$tree/drivers/receiver/hm-16.ini" "$folder/hm-16.ini"
  fi
  for file in "$tree"/install/*; do
    [ -f "$file" ] || continue
    [ -e "$folder/$(basename "$file")" ] || cp "$file" "$folder/"
  done
  if [ "$unit" = simulated ] && ! has_logs "$folder"; then
    cp "$tree"/drivers/simulated/logs/*.log "$folder/"
  fi
}
