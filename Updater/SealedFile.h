#pragma once

#include "FileDescriptor.h"
#include "InstallProblem.h"
#include "Release.h"

namespace corvane {

/// What is received of a release: in memory, without a name, and once whole, closed to every writer,
/// this process included. So what was verified is what is unpacked.
class SealedFile final
{
public:
    explicit SealedFile(const Artefact &artefact) : m_artefact(artefact) { }

    /// Adds a piece where the one before ended; one that stands at 0 begins the file anew.
    [[nodiscard]] InstallResult<void> write(QByteArrayView piece, qint64 at);
    /// Lets nobody write any more, then looks whether the file has the size and hash that were signed.
    [[nodiscard]] InstallResult<void> seal();

    /// Of the open file; nothing before it is sealed and found right.
    [[nodiscard]] std::optional<int> verified() const;

private:
    Artefact m_artefact;
    FileDescriptor m_file;
    qint64 m_length = 0;
    bool m_isVerified = false;
};

} // namespace corvane
