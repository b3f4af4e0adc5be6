#pragma once

#include "Expected.h"

#include <QtCore/QString>

namespace corvane {

/// What the system's error number means to a user, as one sentence.
[[nodiscard]] QString fileErrorSentence(int number);

/// The same as a result.
[[nodiscard]] unexpected<QString> fileError(int number);
/// The sentence on the system call that has just failed, as a result.
[[nodiscard]] unexpected<QString> lastFileError();

} // namespace corvane
