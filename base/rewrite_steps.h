// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace base {

/// The steps of rewriting a file, in order; `Write` may occur several times.
enum class RewriteStep { Open, Write, Flush, Close, Rename, FlushFolder };
enum class StepMoment { Before, After };

/// Called at each step of a rewrite. Tests use it to let any step fail, or the program die there.
struct RewriteWatcher {
    virtual ~RewriteWatcher() = default;
    /// Returns 0 to let the step go on; an `errno` value makes it fail with that reason.
    virtual int at(RewriteStep step, StepMoment moment) = 0;
};

}  // namespace base
