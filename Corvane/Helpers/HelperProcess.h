#pragma once

#include <QtCore/QProcess>
#include <QtCore/QString>

#include <memory>

/// Programs of this one's that do what it leaves to others.
namespace corvane::HelperProcess {

/// The helper of this name: beside this program in a build tree, else where it is installed.
[[nodiscard]] QString path(const QString &name);

/// Ends one at once. Nobody hears of it any more.
void end(std::unique_ptr<QProcess> process);

} // namespace corvane::HelperProcess
