#include "TitleLikeness.h"

#include <QtCore/QHash>
#include <QtCore/QTextBoundaryFinder>

#include <algorithm>

namespace corvane {

namespace {

QStringList wordsOf(const QString &title)
{
    const QString text = title.toCaseFolded();
    QTextBoundaryFinder finder(QTextBoundaryFinder::Word, text);
    QStringList words;
    for (qsizetype start = 0; finder.toNextBoundary() >= 0; start = finder.position()) {
        const QString word = text.mid(start, finder.position() - start);
        if (std::ranges::any_of(word, [](QChar c) { return c.isLetterOrNumber(); }))
            words << word;
    }
    words.removeDuplicates();
    return words;
}

} // namespace

TitleLikeness::TitleLikeness(const QStringList &titles)
{
    QHash<QString, int> numbers;
    QList<int> uses;
    for (const QString &title : titles) {
        Title known;
        for (const QString &word : wordsOf(title)) {
            const auto at = numbers.constFind(word);
            const int number = at != numbers.cend() ? *at : int(uses.size());
            if (at == numbers.cend()) {
                numbers.insert(word, number);
                uses << 0;
            }
            ++uses[number];
            known.words << number;
        }
        std::ranges::sort(known.words);
        m_titles << known;
    }
    for (const int count : std::as_const(uses))
        m_weights << 1.0 / count;
    for (Title &title : m_titles) {
        for (const int word : std::as_const(title.words))
            title.weight += m_weights[word];
    }
}

double TitleLikeness::between(qsizetype a, qsizetype b) const
{
    const Title &first = m_titles[a];
    const Title &second = m_titles[b];
    double shared = 0;
    auto other = second.words.cbegin();
    for (const int word : first.words) {
        other = std::find_if(other, second.words.cend(), [word](int each) { return each >= word; });
        if (other != second.words.cend() && *other == word)
            shared += m_weights[word];
    }
    const double all = first.weight + second.weight - shared;
    return all > 0 ? shared / all : 1;
}

} // namespace corvane
