#pragma once

#include <QString>

#include <system_error>

/// Copies a database file, or any other, over `target`: the target is the whole copy or stays as it was, also when the
/// process is killed in the middle. It is written beside the target (".kuveltmp" at its end), synced and renamed; the
/// old target's mode is kept. While it is copied, other programs may read the source and cannot write it.
///
/// A database that is replaced must not be open in this process. What a crash left in its journal goes into the old
/// file first, so that it can never be applied to the new one. Another program in the middle of a change makes the copy
/// fail.
///
/// Answers why it could not be done, among others EISDIR for a folder and EBUSY for a file copied onto itself or in
/// use.
[[nodiscard]] std::error_code CopyFileWhole(const QString& source, const QString& target);
