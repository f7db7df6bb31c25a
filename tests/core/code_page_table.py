#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Writes code_page_table.txt: each byte of code page 1252 and its letter in UTF-8, both as
hexadecimal digits. The five undefined bytes stand for the control characters of their number."""


def letter(byte):
    try:
        return bytes([byte]).decode("cp1252")
    except UnicodeDecodeError:
        return chr(byte)


with open("code_page_table.txt", "w", encoding="ascii", newline="\n") as out:
    for byte in range(256):
        out.write(f"{byte:02x} {letter(byte).encode('utf-8').hex()}\n")
