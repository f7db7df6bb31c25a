# SPDX-License-Identifier: GPL-3.0-or-later
# Sourced by ./run and scripts/package: builds what ./run starts, and says how far it is.

# configure_run: prepares build/run, unless that was done since the presets were written. CMake itself
# sees to what changes in the tree.
configure_run() {
  local done=build/run/.prepared
  if [ -e build/run/build.ninja ] && [ "$done" -nt CMakePresets.json ]; then return 0; fi
  say "Preparing the build"
  cmake --preset run >/dev/null
  touch "$done"
}

# build_run: builds build/run. One line grows on a terminal, elsewhere a line comes every ten percent;
# what compilers say comes when the build fails, and stands in build/run/build.log.
build_run() {
  local log=build/run/build.log
  configure_run
  if ! NINJA_STATUS='%p|' cmake --build build/run </dev/null 2>&1 | tee "$log" | say_percents; then
    sed -n '/^FAILED: /,$p' "$log" >&2
    say "The build failed; all that was said: $PWD/$log"
    return 1
  fi
}

# say_percents: of lines " 42%|what is built".
say_percents() {
  local line percent last=-1 step=10 end=$'\n'
  if [ -t 2 ]; then
    step=1
    end=$'\r'
  fi
  while IFS= read -r line; do
    [[ $line =~ ^\ *([0-9]+)%\| ]] || continue
    percent=${BASH_REMATCH[1]}
    # What CMake looks at before it builds counts from 0 to 100 too.
    [[ $line != *'Re-checking globbed'* && $line != *'Re-running CMake'* ]] || continue
    [ "$percent" -ge $((last + step)) ] || [ "$percent" -eq 100 ] || continue
    [ "$percent" -ne "$last" ] || continue
    last=$percent
    printf 'Building HMonitor: %d %%%s' "$percent" "$end" >&2
  done
  [ "$last" -lt 0 ] || [ "$step" -eq 10 ] || printf '\n' >&2
}
