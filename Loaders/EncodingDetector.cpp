#include "EncodingDetector.h"

#include <QFile>
#include <QTextCodec>

#include <chardet.h>

#include <cstring>

namespace {
// Names the detector may give that are taken as they stand.
bool isBelieved(const char* name)
{
    for (const char* believed : { "UTF-8", "windows-1251", "IBM866" }) {
        if (std::strcmp(name, believed) == 0)
            return true;
    }
    return false;
}

short runDetector(const char* text, DetectObj** object)
{
#ifdef CHARDET_BINARY_SAFE
    return detect_r(text, std::strlen(text), object);
#else
    // Older libraries have no length argument and stop at the first zero byte by themselves.
    return detect(text, object);
#endif
}
} // namespace

namespace EncodingDetector {

bool detect(const QByteArray& bytes, QByteArray& answer)
{
    DetectObj* object = detect_obj_init();
    if (!object)
        return false;
    const short status = runDetector(bytes.constData(), &object);
    if (status == CHARDET_OUT_OF_MEMORY) {
        detect_obj_free(&object);
        return false;
    }
    if (status == CHARDET_NULL_OBJECT)
        return false;
    answer = object->encoding ? QByteArray(object->encoding) : QByteArray();
    detect_obj_free(&object);
    return true;
}

QTextCodec* codecForAnswer(const QByteArray& answer, Trust trust)
{
    if (!answer.isEmpty() && isBelieved(answer.constData()))
        return QTextCodec::codecForName(answer);
    // Seven-bit text reads alike in every codec that may be asked for; CP1251 stays for it.
    const bool sevenBit = answer.compare("ASCII", Qt::CaseInsensitive) == 0
        || answer.compare("US-ASCII", Qt::CaseInsensitive) == 0;
    if (trust == Trust::AnyQtCodec && !answer.isEmpty() && !sevenBit) {
        if (QTextCodec* codec = QTextCodec::codecForName(answer))
            return codec;
    }
    return QTextCodec::codecForName("CP1251");
}

QTextCodec* codecForText(const QByteArray& bytes, Trust trust)
{
    QByteArray answer;
    if (!detect(bytes, answer))
        return nullptr;
    return codecForAnswer(answer, trust);
}

QByteArray readFiles(const QStringList& paths)
{
    QByteArray buffer;
    for (const QString& path : paths) {
        QFile file(path);
        if (file.open(QIODevice::ReadOnly))
            buffer += file.readAll();
    }
    return buffer;
}

QTextCodec* codecForFiles(const QStringList& paths, Trust trust)
{
    return codecForText(readFiles(paths), trust);
}

} // namespace EncodingDetector
