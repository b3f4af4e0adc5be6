#pragma once

#include <QtCore/QFile>
#include <QtCore/QString>

/// Where the build left what is measured, and what it is told by files.
namespace corvane::bench {

inline const QString corvaneProgram = QStringLiteral(CORVANE_PROGRAM);
inline const QString minimalProgram = QStringLiteral(CORVANE_MINIMAL);
inline const QString pipelinedProgramPath = QStringLiteral(CORVANE_PIPELINED);
inline const QString swayMinimalProgram = QStringLiteral(CORVANE_SWAY_MINIMAL);
inline const QString kwinMinimalProgram = QStringLiteral(CORVANE_KWIN_MINIMAL);
inline const QString floorProgram = QStringLiteral(CORVANE_FLOOR);
inline const QString editorProgram = QStringLiteral(CORVANE_EDITOR);
inline const QString pickerProgram = QStringLiteral(CORVANE_PICKER);
inline const QString reportSheetProgram = QStringLiteral(CORVANE_REPORT_SHEET);
inline const QString windowFloorProgram = QStringLiteral(CORVANE_WINDOW_FLOOR);

/// The path.
inline QString write(const QString &path, const QString &text)
{
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(text.toUtf8());
    return path;
}

} // namespace corvane::bench
