#pragma once

#include "FileDescriptor.h"

#include <QtCore/QString>

#include <optional>

namespace corvane {

/// Says on the disk that the program runs, so that its next start knows whether this one ended without
/// having been quit. One process holds a mark at a time; those of other sessions have their own.
class RunMark final
{
public:
    explicit RunMark(const QString &folder);
    /// Takes the mark away: the program ends as it should.
    ~RunMark();
    Q_DISABLE_COPY_MOVE(RunMark)

    /// Whether a mark was left behind.
    [[nodiscard]] bool foundAnother() const { return m_foundAnother; }

private:
    std::optional<FileDescriptor> m_file; ///< locked
    QByteArray m_path; ///< empty where no mark could be set
    bool m_foundAnother = false;
};

} // namespace corvane
