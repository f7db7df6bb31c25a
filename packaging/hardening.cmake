# SPDX-License-Identifier: GPL-3.0-or-later
# How Debian builds its packages: a buffer that overflows ends the program instead of being used, and
# nothing stands at an address that is known beforehand.
include(CheckPIESupported)
check_pie_supported()
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
add_compile_options(-fstack-protector-strong -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2 -Wformat
                    -Werror=format-security)
add_link_options(LINKER:-z,relro LINKER:-z,now)
