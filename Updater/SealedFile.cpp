#include "SealedFile.h"

#include "Beneath.h"

#include <fcntl.h>
#include <sodium.h>
#include <sys/mman.h>

namespace corvane {

namespace {

constexpr int everySeal = F_SEAL_SEAL | F_SEAL_SHRINK | F_SEAL_GROW | F_SEAL_WRITE;

bool isSame(const QByteArray &one, const QByteArray &other)
{
    // In a time that tells nothing of where the two differ.
    return one.size() == other.size()
        && sodium_memcmp(one.constData(), other.constData(), one.size()) == 0;
}

} // namespace

InstallResult<void> SealedFile::write(QByteArrayView piece, qint64 at)
{
    if (at == 0) {
        // What came before may be sealed already.
        m_file = FileDescriptor(::memfd_create("update", MFD_CLOEXEC | MFD_ALLOW_SEALING));
        m_length = 0;
        m_isVerified = false;
        if (!m_file.isOpen())
            return lastInstallError();
    }
    if (at != m_length || piece.size() > m_artefact.size - m_length)
        return installFailure(InstallProblem::notAsSigned);
    if (const auto written = m_file.write(piece); !written)
        return installFailure(InstallProblem::cannotWrite, written.error());
    m_length += piece.size();
    return {};
}

InstallResult<void> SealedFile::seal()
{
    if (!m_file.isOpen() || m_file.size() != m_artefact.size)
        return installFailure(InstallProblem::notAsSigned);
    if (::fcntl(m_file.number(), F_ADD_SEALS, everySeal) != 0)
        return lastInstallError();
    const auto hash = Beneath::sha256(m_file);
    if (!hash)
        return installFailure(InstallProblem::cannotWrite, hash.error());
    // Another process of this user could have changed its length before the seal.
    if (m_file.size() != m_artefact.size || !isSame(*hash, m_artefact.sha256))
        return installFailure(InstallProblem::notAsSigned);
    m_isVerified = true;
    return {};
}

std::optional<int> SealedFile::verified() const
{
    return m_isVerified ? std::optional(m_file.number()) : std::nullopt;
}

} // namespace corvane
