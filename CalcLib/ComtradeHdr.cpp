#include "CalcLib/Comtrade.h"

#include "CalcLib/ComtradeFiles.h"

namespace {
const char* const lineEnd = "\r\n";
}

// A write or close failure after a successful open still returns 0, as the callers of this
// header have always seen it.
int COMTRADE::writeHdr(const std::string& path, int64_t timeUs, const std::vector<std::string>& secondLines,
    const std::vector<std::string>& additionalLines) const
{
    std::string text;
    text += "Осциллограмма записана устройством \"" + m_deviceName + "\"" + lineEnd;
    text += std::string("ООО \"Тессара-Системы\" г.Нордгород") + lineEnd;
    text += "Субъект электроэнергетики: " + m_ownerName + lineEnd;
    text += "Объект электроэнергетики: " + m_stationName + lineEnd;
    text += "Источник: " + m_deviceName + lineEnd;
    text += "Версия ПО: " + m_softwareVersion + lineEnd;
    text += "Наименование файла: " + m_basePath + lineEnd;
    text += "Дата и время: " + timeStampText(timeUs) + lineEnd;
    text += "Временной код: " + m_timeCode + lineEnd;
    text += lineEnd;
    text += std::string("Дополнительная информация:") + lineEnd;
    for (const std::string& line : additionalLines)
        text += line + lineEnd;
    for (const std::string& line : secondLines)
        text += line + lineEnd;

    ComtradeFiles::File file = ComtradeFiles::open(pathOr(path, ".HDR"), "wb");
    if (!file)
        return -1;
    ComtradeFiles::writeAndClose(std::move(file), text);
    return 0;
}

int COMTRADE::writeRawHdr(const std::string& path, const std::string& bytes) const
{
    ComtradeFiles::File file = ComtradeFiles::open(pathOr(path, ".HDR"), "wb");
    if (!file)
        return -1;
    ComtradeFiles::writeAndClose(std::move(file), bytes);
    return 0;
}
