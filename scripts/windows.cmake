# SPDX-License-Identifier: GPL-3.0-or-later
# The toolchain of scripts/windows: MinGW for HMONITOR_WINDOWS, x86_64 or i686. What is only headers
# comes from HMONITOR_HEADERS, GoogleTest is compiled with the rest.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR ${HMONITOR_WINDOWS})
set(CMAKE_TRY_COMPILE_PLATFORM_VARIABLES HMONITOR_WINDOWS HMONITOR_HEADERS)
set(CMAKE_C_COMPILER ${HMONITOR_WINDOWS}-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER ${HMONITOR_WINDOWS}-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER ${HMONITOR_WINDOWS}-w64-mingw32-windres)

set(CMAKE_FIND_ROOT_PATH /usr/${HMONITOR_WINDOWS}-w64-mingw32 ${HMONITOR_HEADERS})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(CLI11_DIR ${HMONITOR_HEADERS}/cmake)
set(GTest_DIR ${HMONITOR_HEADERS}/cmake)

# Nothing of the compiler has to lie beside a program or a library.
foreach(kind EXE SHARED MODULE)
  set(CMAKE_${kind}_LINKER_FLAGS_INIT "-static")
endforeach()
# 32 bits count as 64 bits do: on the old registers a double has more digits than it can keep.
if(HMONITOR_WINDOWS STREQUAL i686)
  set(CMAKE_C_FLAGS_INIT "-msse2 -mfpmath=sse")
  set(CMAKE_CXX_FLAGS_INIT "-msse2 -mfpmath=sse")
endif()
