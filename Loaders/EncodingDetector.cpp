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

QTextCodec* codecForText(const QByteArray& bytes)
{
    DetectObj* object = detect_obj_init();
    if (!object)
        return nullptr;
    const short status = runDetector(bytes.constData(), &object);
    if (status == CHARDET_OUT_OF_MEMORY) {
        detect_obj_free(&object);
        return nullptr;
    }
    if (status == CHARDET_NULL_OBJECT)
        return nullptr;
    const char* name = (object->encoding && isBelieved(object->encoding)) ? object->encoding : "CP1251";
    QTextCodec* codec = QTextCodec::codecForName(name);
    detect_obj_free(&object);
    return codec;
}

QTextCodec* codecForFiles(const QStringList& paths)
{
    QByteArray buffer;
    for (const QString& path : paths) {
        QFile file(path);
        if (file.open(QIODevice::ReadOnly))
            buffer += file.readAll();
    }
    return codecForText(buffer);
}

} // namespace EncodingDetector
