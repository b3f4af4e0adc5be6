#pragma once

#include "Clock.h"
#include "EnumTable.h"
#include "Rect.h"

#include <QtCore/QJsonValue>
#include <QtCore/QList>
#include <QtCore/QString>

#include <optional>

namespace corvane {

/// One value of a desk file and the path that leads to it. An absent value reads as the fallback.
/// One that cannot be used does so too, and becomes the file's problem unless there is one already.
class DeskReader
{
public:
    DeskReader(QJsonValue value, QString path, QString &problem);

    [[nodiscard]] bool isPresent() const { return !m_value.isUndefined(); }
    /// A value inside this object.
    [[nodiscard]] DeskReader at(const QString &key) const;
    [[nodiscard]] QList<DeskReader> list() const;

    [[nodiscard]] bool boolean(bool fallback) const;
    [[nodiscard]] QString text(const QString &fallback = {}) const;
    [[nodiscard]] double number(double least, double most, double fallback) const;
    [[nodiscard]] int integer(int least, int most, int fallback) const;
    [[nodiscard]] Clock::Duration milliseconds(Clock::Duration fallback) const;
    [[nodiscard]] std::optional<Size> size() const;
    [[nodiscard]] Rect rect(Rect fallback) const;
    /// The index of the text among `words`.
    [[nodiscard]] int oneOf(const QStringList &words, int fallback) const;
    /// The case of an enumeration that the text names.
    template <auto last, typename Row>
    [[nodiscard]] auto oneOf(const EnumTable<last, Row> &table, decltype(last) fallback) const
    {
        QStringList words;
        for (const Row &row : table)
            words << row.name;
        return static_cast<decltype(last)>(oneOf(words, static_cast<int>(fallback)));
    }

    void reject(const QString &expectation) const;

private:
    [[nodiscard]] QList<double> numbers(int count, const QString &expectation) const;

    QJsonValue m_value;
    QString m_path;
    QString *m_problem;
};

} // namespace corvane
