// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace base {

/// What rewriting a file does to the disk, in order; `Write` may come several times.
enum class RewriteStep { Open, Write, Flush, Close, Rename, FlushFolder };
enum class StepMoment { Before, After };

/// Looks on while a file is rewritten. Tests use it to let any step fail or the program die there.
struct RewriteWatcher {
    virtual ~RewriteWatcher() = default;
    /// 0 lets the step go on; an `errno` value makes it fail with that reason.
    virtual int at(RewriteStep step, StepMoment moment) = 0;
};

}  // namespace base
