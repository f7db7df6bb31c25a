// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>

namespace hm16 {

// What keeps a file from being handed to the system as a library. The system itself would wait for
// the other end of a pipe, and run into the missing pages of a file that was cut short.
enum class FileFault {
    None,
    Missing,  // no such file, or a link that leads nowhere
    Folder,
    NotRegular,      // a pipe, a socket, a device
    CutShort,        // shorter than its own headers say
    OtherMachine,    // made for another processor
    ForeignOwner,    // belongs neither to who runs the program nor to root
    OthersMayWrite,  // its group or everybody may write it
};

// Whether it matters who could have written the file. The program asks for it; the probe loads what
// it is pointed at.
enum class Trust { Anybody, OwnerAlone };

// Looks at the file without opening what is no regular file. What is no library at all passes: the
// system refuses it with words of its own.
FileFault checkLibraryFile(const std::filesystem::path& file, Trust trust);

}  // namespace hm16
