#include "Catalogues.h"

#include <QtCore/QCoreApplication>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

/// Loads the catalogue of the first language that has one; English needs none. Whether one was loaded.
bool loadLanguage(QTranslator &translator, const QStringList &languages, const QString &folder)
{
    for (QString language : languages) {
        if (language == "en"_L1 || language.startsWith("en-"_L1) || language == "C"_L1)
            return false;
        // Without a corvane_de_AT, this finds corvane_de.
        if (translator.load(u"corvane_"_s + language.replace(u'-', u'_'), folder, u"_"_s))
            return true;
    }
    return false;
}

} // namespace

Catalogues::Catalogues(const QStringList &languages, const QString &folder)
{
#ifdef Q_OS_LINUX
    if (m_desktop.load(u":/translations/corvane_linux.qm"_s))
        QCoreApplication::installTranslator(&m_desktop);
#endif
    if (loadLanguage(m_language, languages, folder))
        QCoreApplication::installTranslator(&m_language);
}

} // namespace corvane
