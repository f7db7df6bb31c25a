// SPDX-License-Identifier: GPL-3.0-or-later
// hmonitor-website TREE FOLDER: writes the manual of the sources in TREE as a website into FOLDER.
#include <filesystem>
#include <fstream>
#include <iostream>

#include "manual/manual_folder.h"
#include "manual/website.h"

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "usage: hmonitor-website TREE FOLDER\n";
        return 2;
    }
    const std::filesystem::path folder = argv[2];
    for (const hmonitor::WebFile& file :
         hmonitor::websiteOf(hmonitor::Book(hmonitor::manualIn(argv[1])))) {
        std::filesystem::create_directories((folder / file.path).parent_path());
        std::ofstream out(folder / file.path, std::ios::binary);
        if (!(out << file.text).flush()) {
            std::cerr << file.path << " cannot be written\n";
            return 1;
        }
    }
}
