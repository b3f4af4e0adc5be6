#include "Catalogues.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QLibraryInfo>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

/// Loads the catalogue of the first language that has one, and returns how its file names end. English
/// needs none.
QString loadLanguage(QTranslator &translator, const QStringList &languages, const QString &folder)
{
    for (QString language : languages) {
        if (language == "en"_L1 || language.startsWith("en-"_L1) || language == "C"_L1)
            return {};
        // Without a corvane_de_AT, this finds corvane_de.
        if (translator.load(u"corvane_"_s + language.replace(u'-', u'_'), folder, u"_"_s))
            return u'_' + language;
    }
    return {};
}

} // namespace

Catalogues::Catalogues(const QStringList &languages, const QString &folder)
{
#ifdef Q_OS_LINUX
    if (m_desktop.load(u":/translations/corvane_linux.qm"_s))
        QCoreApplication::installTranslator(&m_desktop);
#endif
    const QString language = loadLanguage(m_language, languages, folder);
    if (language.isEmpty())
        return;
    // Not every system has Qt's own; without it, the menus of text fields stay English.
    if (m_qt.load(
            u"qtbase"_s + language, QLibraryInfo::path(QLibraryInfo::TranslationsPath), u"_"_s))
        QCoreApplication::installTranslator(&m_qt);
    QCoreApplication::installTranslator(&m_language);
}

} // namespace corvane
