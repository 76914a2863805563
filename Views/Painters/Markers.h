#pragma once

#include "Views/Painters/ILayerPainter.h"

#include <QFont>
#include <QFontMetrics>
#include <QHash>
#include <QList>
#include <QStringList>
#include <QVariantList>

// Markers: moments of the record frozen with the parameter values of every analogue row. The
// store of items and the layer that draws them with the value box of the painted channel.
class KORVANE_EXPORT Markers : public ILayerPainter
{
public:
    struct Item
    {
        int sampleNumber = 0;
        // Milliseconds from the trigger, two decimals.
        QString time;
        // Channel number to the values of its parameters at the sample.
        QHash<int, QVariantList> values;

        bool operator==(const Item& other) const
        {
            return sampleNumber == other.sampleNumber && time == other.time && values == other.values;
        }
    };

    Markers();

    bool contains(int sample) const;
    // Keeps the list in ascending order of samples.
    void append(const Item& item);
    // Removes the item at the item's sample.
    void remove(const Item& item);
    void setItems(const QList<Item>& items);
    void clear();
    const QList<Item>& items() const { return m_items; }

    void setChannelTitles(const QList<QString>& titles) { m_titles = titles; }
    const QList<QString>& channelTitles() const { return m_titles; }
    void setShortNames(const QHash<int, QStringList>& names) { m_shortNames = names; }
    const QHash<int, QStringList>& shortNames() const { return m_shortNames; }
    void setLongNames(const QHash<int, QStringList>& names) { m_longNames = names; }
    const QHash<int, QStringList>& longNames() const { return m_longNames; }
    void setParameterCounts(const QHash<int, int>& counts) { m_parameterCounts = counts; }
    const QHash<int, int>& parameterCounts() const { return m_parameterCounts; }
    // Channel numbers of the tables in title order.
    QList<int> tableChannels() const { return m_tableChannels; }
    void setTableChannels(const QList<int>& channels) { m_tableChannels = channels; }

    void setStartSample(int sample) { m_startSample = sample; }
    void setXScale(double xScale) { m_xScale = xScale; }
    void setChannel(int channel) { m_channel = channel; }
    int channel() const { return m_channel; }

    // The text of a value in the box and the table.
    static QString valueText(const QVariant& value);

    void paint(PixelBuffer& buffer) override;

private:
    QStringList boxRows(int channel, const Item& item) const;

    int m_startSample = 0;
    double m_xScale = 1.0;
    int m_channel = -1;
    QList<QString> m_titles;
    QList<int> m_tableChannels;
    QHash<int, QStringList> m_shortNames;
    QHash<int, QStringList> m_longNames;
    QHash<int, int> m_parameterCounts;
    QList<Item> m_items;
    QFont m_font;
    QFontMetrics m_metrics;
};
