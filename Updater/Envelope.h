#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QJsonValue>
#include <QtCore/QList>

#include <optional>

namespace corvane {

using PublicKeys = QList<QByteArray>; ///< Ed25519, 32 bytes each

/// A document with signatures round it: its type, its bytes, and what was signed of both.
struct Envelope {
    QByteArray payloadType;
    QByteArray payload; ///< to be read only once `isSignedBy` says so
    QList<QByteArray> signatures;

    /// From JSON of the form {payloadType, payload, signatures: [{keyid, sig}]}. Nothing for anything
    /// else. Who claims to have signed (keyid) is not looked at: anybody can claim that.
    [[nodiscard]] static std::optional<Envelope> fromJson(const QJsonValue &json);

    /// Whether one of these keys made one of the signatures.
    [[nodiscard]] bool isSignedBy(const PublicKeys &keys) const;
    /// What is signed: no document of one type can pass for one of another.
    [[nodiscard]] QByteArray signedBytes() const;
};

} // namespace corvane
