#include "OneLine.h"

namespace corvane {

QString oneLine(const QString &text, qsizetype longest)
{
    QString line = text.left(10 * longest).simplified();
    // Directions for bidirectional text would turn the rest of the line round, too.
    line.removeIf([](QChar character) {
        return !character.isPrint() && !character.isSurrogate() && character != u' ';
    });
    if (line.size() <= longest)
        return line;
    const bool cutsPair = line.at(longest - 2).isHighSurrogate();
    return line.left(longest - (cutsPair ? 2 : 1)) + u'…';
}

} // namespace corvane
