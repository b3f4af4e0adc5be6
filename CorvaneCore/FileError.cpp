#include "FileError.h"

#include <QtCore/QCoreApplication>

#include <array>
#include <cerrno>

namespace corvane {

namespace {

struct SentenceRow {
    int number;
    const char *sentence;
};

constexpr std::array sentenceTable{
    SentenceRow{EACCES, QT_TRANSLATE_NOOP("FileError", "Permission was denied.")},
    SentenceRow{EDQUOT, QT_TRANSLATE_NOOP("FileError", "The disk quota is used up.")},
    SentenceRow{EFBIG, QT_TRANSLATE_NOOP("FileError", "The file would become too large.")},
    SentenceRow{EIO, QT_TRANSLATE_NOOP("FileError", "The disk reported an error.")},
    SentenceRow{EISDIR, QT_TRANSLATE_NOOP("FileError", "There is a folder in its place.")},
    SentenceRow{ELOOP, QT_TRANSLATE_NOOP("FileError", "It is a link that leads nowhere.")},
    SentenceRow{ENOENT, QT_TRANSLATE_NOOP("FileError", "It does not exist.")},
    SentenceRow{ENOSPC, QT_TRANSLATE_NOOP("FileError", "The disk is full.")},
    SentenceRow{ENOTDIR, QT_TRANSLATE_NOOP("FileError", "Its folder is not a folder.")},
    SentenceRow{ENXIO, QT_TRANSLATE_NOOP("FileError", "It is not a regular file.")},
    SentenceRow{EPERM, QT_TRANSLATE_NOOP("FileError", "Permission was denied.")},
    SentenceRow{EROFS, QT_TRANSLATE_NOOP("FileError", "The disk is read-only.")},
    SentenceRow{EWOULDBLOCK, QT_TRANSLATE_NOOP("FileError", "Another process is writing it.")},
};

} // namespace

QString fileErrorSentence(int number)
{
    for (const SentenceRow &row : sentenceTable) {
        if (row.number == number)
            return QCoreApplication::translate("FileError", row.sentence);
    }
    return qt_error_string(number) + u'.';
}

unexpected<QString> fileError(int number)
{
    return unexpected<QString>(fileErrorSentence(number));
}

unexpected<QString> lastFileError()
{
    return fileError(errno);
}

} // namespace corvane
