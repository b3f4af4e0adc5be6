#include "StoredJson.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QJsonParseError>

#include <tuple>

namespace corvane {

namespace {

QString translated(const char *sentence)
{
    return QCoreApplication::translate("StoredJson", sentence);
}

bool isWordCharacter(char character)
{
    return QByteArrayView("+-._").contains(character) || (character >= '0' && character <= '9')
        || (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z');
}

bool isValue(const QByteArray &word)
{
    const bool startsAsNumber = word.front() == '-' || (word.front() >= '0' && word.front() <= '9');
    bool isNumber = false;
    std::ignore = word.toDouble(&isNumber);
    return (startsAsNumber && isNumber) || word == "true" || word == "false" || word == "null";
}

qsizetype endOfString(const QByteArray &text, qsizetype start)
{
    qsizetype end = start + 1;
    while (end < text.size() && text[end] != '"')
        end += text[end] == '\\' ? 2 : 1;
    return qMin(end + 1, text.size());
}

qsizetype endOfWord(const QByteArray &text, qsizetype start)
{
    qsizetype end = start;
    while (end < text.size() && isWordCharacter(text[end]))
        ++end;
    return end;
}

/// The text with an empty object for every word that is no value, such as NaN or 1e999.
QByteArray withoutBadWords(const QByteArray &text, DecodeProblems &problems)
{
    QByteArray result;
    result.reserve(text.size());
    for (qsizetype position = 0; position < text.size();) {
        const bool isWord = isWordCharacter(text[position]);
        const qsizetype end = text[position] == '"' ? endOfString(text, position)
            : isWord                                ? endOfWord(text, position)
                                                    : position + 1;
        const QByteArray piece = text.sliced(position, end - position);
        if (isWord && !isValue(piece)) {
            problems.add();
            result += "{}";
        } else {
            result += piece;
        }
        position = end;
    }
    return result;
}

} // namespace

expected<QJsonValue, QString> parseJson(const QByteArray &text, DecodeProblems &problems)
{
    QJsonParseError error;
    QJsonDocument document = QJsonDocument::fromJson(text, &error);
    if (error.error == QJsonParseError::IllegalNumber
        || error.error == QJsonParseError::IllegalValue) {
        QJsonParseError secondError;
        document = QJsonDocument::fromJson(withoutBadWords(text, problems), &secondError);
        if (secondError.error == QJsonParseError::NoError)
            error = secondError;
    }
    if (error.error != QJsonParseError::NoError)
        return unexpected<QString>(
            translated(QT_TRANSLATE_NOOP("StoredJson", "It is not JSON from its byte %1 on: %2."))
                .arg(error.offset)
                .arg(error.errorString()));
    return document.isArray() ? QJsonValue(document.array()) : QJsonValue(document.object());
}

expected<QJsonValue, QString> readJson(const QString &path, DecodeProblems &problems)
{
    const auto content = PrivateFile::read(path);
    if (!content)
        return unexpected<QString>(content.error());
    return *content ? parseJson(**content, problems)
                    : expected<QJsonValue, QString>(QJsonValue(QJsonValue::Undefined));
}

QString wrongTopLevelSentence()
{
    return translated(
        QT_TRANSLATE_NOOP("StoredJson", "Its brackets are not those of what it should hold."));
}

QString problemsSentence(int count)
{
    return translated(QT_TRANSLATE_NOOP("StoredJson", "Values in it that cannot be used: %1."))
        .arg(count);
}

std::optional<std::pair<QByteArray, QByteArray>> halves(const QByteArray &array)
{
    constexpr qsizetype worthAThread = 256 * 1024LL;
    if (array.size() < worthAThread || !array.startsWith('['))
        return std::nullopt;
    int depth = 0;
    for (qsizetype position = 0; position < array.size(); ++position) {
        const char character = array[position];
        if (character == '"') {
            position = endOfString(array, position) - 1;
        } else if (character == '[' || character == '{') {
            ++depth;
        } else if (character == ']' || character == '}') {
            --depth;
        } else if (character == ',' && depth == 1 && position >= array.size() / 2) {
            return std::pair(array.first(position) + ']', '[' + array.sliced(position + 1));
        }
    }
    return std::nullopt;
}

expected<void, QString> writeJson(const QString &path, const QJsonDocument &document)
{
    return PrivateFile::replace(path, document.toJson(QJsonDocument::Indented));
}

} // namespace corvane
