#include "Savers/UserSettingsJson.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {
std::string compact(const QJsonArray& array)
{
    return QJsonDocument(array).toJson(QJsonDocument::Compact).toStdString();
}

QJsonArray arrayOf(const std::string& text)
{
    return QJsonDocument::fromJson(QByteArray::fromStdString(text)).array();
}

template<typename Range> QJsonArray intArray(const Range& numbers)
{
    QJsonArray array;
    for (const auto number : numbers)
        array.append(int(number));
    return array;
}

QList<int> intList(const QJsonArray& array)
{
    QList<int> numbers;
    for (const QJsonValue& value : array)
        numbers.append(value.toInt());
    return numbers;
}

QJsonObject measureObject(const MeasureItem& item)
{
    return QJsonObject { { QStringLiteral("finish"), item.finishSampleNumber() },
        { QStringLiteral("complete"), item.isComplete() }, { QStringLiteral("saved"), item.isSaved() },
        { QStringLiteral("start"), item.startSampleNumber() } };
}

MeasureItem measureItem(const QJsonObject& object)
{
    MeasureItem item;
    item.setStartSampleNumber(object.value(QStringLiteral("start")).toInt());
    item.setFinishSampleNumber(object.value(QStringLiteral("finish")).toInt());
    item.setComplete(object.value(QStringLiteral("complete")).toBool());
    item.setSaved(object.value(QStringLiteral("saved")).toBool());
    return item;
}
} // namespace

CMR_USER_SETTINGS UserSettingsJson::toSettings() const
{
    CMR_USER_SETTINGS settings;
    settings.version = 1;
    QJsonArray plots;
    for (const QList<int>& plot : analogSignalOrder)
        plots.append(intArray(plot));
    settings.analogSignalOrder = compact(plots);
    settings.discreteSignalOrder = compact(intArray(discreteSignalOrder));
    QJsonArray selected;
    for (const bool flag : selectedSignals)
        selected.append(flag);
    settings.selectedSignals = compact(selected);
    QJsonArray colors;
    for (const std::vector<unsigned short>& color : customColors)
        colors.append(intArray(color));
    settings.customColors = compact(colors);
    QJsonArray items;
    for (const MeasureItem& item : measures)
        items.append(measureObject(item));
    settings.measures = compact(items);
    settings.markers = compact(intArray(markers));
    return settings;
}

UserSettingsJson UserSettingsJson::fromSettings(const CMR_USER_SETTINGS& settings)
{
    UserSettingsJson json;
    for (const QJsonValue& plot : arrayOf(settings.analogSignalOrder))
        json.analogSignalOrder.append(intList(plot.toArray()));
    json.discreteSignalOrder = intList(arrayOf(settings.discreteSignalOrder));
    for (const QJsonValue& flag : arrayOf(settings.selectedSignals))
        json.selectedSignals.push_back(flag.toBool());
    for (const QJsonValue& color : arrayOf(settings.customColors)) {
        std::vector<unsigned short> rgba;
        for (const QJsonValue& part : color.toArray())
            rgba.push_back(static_cast<unsigned short>(part.toInt()));
        json.customColors.push_back(rgba);
    }
    for (const QJsonValue& item : arrayOf(settings.measures))
        json.measures.append(measureItem(item.toObject()));
    json.markers = intList(arrayOf(settings.markers));
    return json;
}
