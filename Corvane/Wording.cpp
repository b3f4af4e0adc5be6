#include "Wording.h"

#include <algorithm>

namespace corvane {

using namespace Qt::StringLiterals;

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

QString rectText(const Rect &rect)
{
    return u"%1,%2 %3×%4"_s.arg(rect.x).arg(rect.y).arg(rect.width).arg(rect.height);
}

} // namespace corvane
