#pragma once

#include <QtCore/QStringList>

namespace corvane {

/// Tells how alike titles of one application's windows are. Words that many of them have, such as
/// the application's name, count for little.
class TitleLikeness final
{
public:
    /// Every title that will be compared.
    explicit TitleLikeness(const QStringList &titles);

    /// By index: 1 for titles of the same words, 0 for those that share none.
    [[nodiscard]] double between(qsizetype a, qsizetype b) const;

private:
    struct Title {
        QList<int> words; ///< ascending
        double weight = 0; ///< of all its words
    };

    QList<Title> m_titles;
    QList<double> m_weights; ///< by word
};

} // namespace corvane
