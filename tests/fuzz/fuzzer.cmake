# SPDX-License-Identifier: GPL-3.0-or-later
# Each fuzzer is one file NAME_fuzz.cpp with LLVMFuzzerTestOneInput and a folder of kept inputs,
# corpus/NAME: hmonitor_fuzzer(frequency LIBRARIES hmonitor_core). The tests replay the inputs and
# mutations of them (20000, or MUTATIONS where one input costs much; a fifth of that under the address
# sanitizer, which costs ten times as much); with clang and HMONITOR_FUZZ the real fuzzers are built
# too, best with HMONITOR_SANITIZE=fuzzer-no-link,address,undefined, as scripts/fuzz does it.
option(HMONITOR_FUZZ "Build the fuzzers (needs clang)" OFF)

function(hmonitor_fuzzer name)
  cmake_parse_arguments(ARG "" "MUTATIONS" "LIBRARIES" ${ARGN})
  hmonitor_test(fuzz_${name} ${name}_fuzz.cpp
                ${PROJECT_SOURCE_DIR}/tests/fuzz/replay_test.cpp IN_MEMORY LIBRARIES ${ARG_LIBRARIES})
  target_compile_definitions(test_fuzz_${name} PRIVATE
    HMONITOR_CORPUS="${CMAKE_CURRENT_SOURCE_DIR}/corpus/${name}")
  if(ARG_MUTATIONS)
    target_compile_definitions(test_fuzz_${name} PRIVATE HMONITOR_MUTATIONS=${ARG_MUTATIONS})
  endif()
  if(HMONITOR_FUZZ)
    add_executable(fuzz_${name} ${name}_fuzz.cpp)
    target_link_libraries(fuzz_${name} PRIVATE hmonitor_tree ${ARG_LIBRARIES})
    target_compile_options(fuzz_${name} PRIVATE -fsanitize=fuzzer)
    target_link_options(fuzz_${name} PRIVATE -fsanitize=fuzzer)
  endif()
endfunction()
