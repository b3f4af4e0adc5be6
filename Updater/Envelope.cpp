#include "Envelope.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonObject>

#include <algorithm>
#include <sodium.h>

namespace corvane {

namespace {

// Enough for every key while old and new ones are in use; each costs every client a verification.
constexpr qsizetype mostSignatures = 8;

std::optional<QByteArray> decoded(const QJsonValue &json)
{
    if (!json.isString())
        return std::nullopt;
    auto result = QByteArray::fromBase64Encoding(json.toString().toUtf8(),
        QByteArray::Base64Encoding | QByteArray::AbortOnBase64DecodingErrors);
    return result ? std::optional(*std::move(result)) : std::nullopt;
}

const unsigned char *bytes(const QByteArray &array)
{
    return reinterpret_cast<const unsigned char *>(array.constData());
}

bool isReady()
{
    static const bool isReady = sodium_init() >= 0;
    return isReady;
}

} // namespace

std::optional<Envelope> Envelope::fromJson(const QJsonValue &json)
{
    const QJsonValue type = json[u"payloadType"];
    const auto payload = decoded(json[u"payload"]);
    const QJsonValue list = json[u"signatures"];
    const QJsonArray signatures = list.toArray();
    if (!type.isString() || !payload || !list.isArray() || signatures.size() > mostSignatures)
        return std::nullopt;
    Envelope envelope{type.toString().toUtf8(), *payload, {}};
    for (const QJsonValue each : signatures) {
        const auto signature = decoded(each[u"sig"]);
        if (!signature)
            return std::nullopt;
        envelope.signatures << *signature;
    }
    return envelope;
}

bool Envelope::isSignedBy(const PublicKeys &keys) const
{
    const QByteArray message = signedBytes();
    const auto isGood = [&](const QByteArray &signature, const QByteArray &key) {
        return signature.size() == crypto_sign_BYTES && key.size() == crypto_sign_PUBLICKEYBYTES
            && crypto_sign_verify_detached(
                   bytes(signature), bytes(message), message.size(), bytes(key))
            == 0;
    };
    return isReady() && std::ranges::any_of(signatures, [&](const QByteArray &signature) {
        return std::ranges::any_of(
            keys, [&](const QByteArray &key) { return isGood(signature, key); });
    });
}

QByteArray Envelope::signedBytes() const
{
    return "DSSEv1 " + QByteArray::number(payloadType.size()) + ' ' + payloadType + ' '
        + QByteArray::number(payload.size()) + ' ' + payload;
}

} // namespace corvane
