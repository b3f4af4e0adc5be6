#pragma once

#include <QtCore/QLocale>
#include <QtCore/QTranslator>

namespace corvane {

/// Translates what the user reads, for as long as the object lives. The texts in the code speak of the
/// Mac. On Linux a catalogue of that desktop's words stands above them, and above both a catalogue of
/// the user's language, where there is one; Qt's own texts then come in that language, too.
class Catalogues final
{
public:
    /// The languages are in the order in which the user likes them, as QLocale names them. The folder is
    /// where the languages' catalogues are; by default those that the program brings.
    explicit Catalogues(const QStringList &languages = QLocale().uiLanguages(),
        const QString &folder = QStringLiteral(":/translations"));

private:
    QTranslator m_desktop;
    QTranslator m_qt;
    QTranslator m_language;
};

} // namespace corvane
