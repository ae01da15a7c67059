// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace lorvane::cli {

/// Exit codes of lorvane-cli; each failure kind has its own so that scripts can tell them
/// apart.
enum ExitCode : int
{
    Success = 0,
    Usage = 1,        ///< unknown command or option, missing argument
    FileMissing = 2,  ///< the named file does not exist
    NotADatabase = 3, ///< not a database, truncated or damaged
    Damaged = 4,      ///< a database without the rows a meter file must have
    VersionFault = 5, ///< a schema version the program cannot read
    Failure = 6,      ///< any other failure (engine error, unwritable output)
    Refused = 7,      ///< the file may not be opened or changed and is left as it is
                      ///< (read-only attribute, a version that cannot be upgraded)
};

} // namespace lorvane::cli
