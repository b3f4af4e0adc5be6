#pragma once

#include <QtCore/QLocale>
#include <QtCore/QTranslator>

namespace corvane {

/// The words that the user reads, while it lives: the source texts, which speak of the Mac; on Linux
/// its catalogue above them; above both the user's language, where there is a catalogue of it.
class Catalogues final
{
public:
    /// The languages are in the order in which the user likes them, as QLocale names them. The folder
    /// has the catalogues of languages; those that the program brings unless told.
    explicit Catalogues(const QStringList &languages = QLocale().uiLanguages(),
        const QString &folder = QStringLiteral(":/translations"));

private:
    QTranslator m_desktop;
    QTranslator m_language;
};

} // namespace corvane
