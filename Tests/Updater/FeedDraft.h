#pragma once

#include "Feed.h"

#include <sodium.h>

namespace corvane {

/// Made for the run.
class SigningKey final
{
public:
    SigningKey() { crypto_sign_keypair(data(publicKey), data(m_secretKey)); }

    [[nodiscard]] QByteArray envelope(QByteArrayView type, const QByteArray &payload) const
    {
        QByteArray message = Envelope{type.toByteArray(), payload, {}}.signedBytes();
        QByteArray secretKey = m_secretKey;
        QByteArray signature(crypto_sign_BYTES, Qt::Uninitialized);
        crypto_sign_detached(
            data(signature), nullptr, data(message), message.size(), data(secretKey));
        return R"({"payloadType": ")" + type.toByteArray() + R"(", "payload": ")"
            + payload.toBase64() + R"(", "signatures": [{"sig": ")" + signature.toBase64()
            + "\"}]}";
    }

    QByteArray publicKey = QByteArray(crypto_sign_PUBLICKEYBYTES, Qt::Uninitialized);

private:
    static unsigned char *data(QByteArray &bytes)
    {
        return reinterpret_cast<unsigned char *>(bytes.data());
    }

    QByteArray m_secretKey = QByteArray(crypto_sign_SECRETKEYBYTES, Qt::Uninitialized);
};

/// The payload of a release.
inline const QByteArray releaseDraft = R"({"product": "Corvane", "version": "1.2", "build": 12,
    "date": "2026-03-01T12:00:00Z", "minimumBuild": 3, "artefacts": [{"os": "linux",
    "arch": "x86_64", "glibc": "2.36", "size": 1000, "unpackedSize": 9000, "sha256":
    "aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa",
    "addresses": ["https://corvane.example/1.2.tar.zst"]}]})";

/// The payload of a feed of these envelopes.
[[nodiscard]] inline QByteArray feedDraft(const QByteArrayList &releases)
{
    QByteArrayList entries;
    for (const QByteArray &each : releases)
        entries << R"({"critical": false, "notes": {"size": 10, "sha256":
            "bbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbb"},
            "rollout": {"start": "2026-03-02T00:00:00Z", "interval": 86400}, "release": )"
                + each + '}';
    return R"({"product": "Corvane", "channel": "stable", "issued": "2026-03-02T00:00:00Z",
        "expires": "2026-03-16T00:00:00Z", "releases": [)"
        + entries.join(',') + "]}";
}

} // namespace corvane
