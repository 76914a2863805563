#pragma once

#include "Model/DataType.h"
#include "Model/OscillogramData.h"
#include "korvane_export.h"

#include <QColor>
#include <QMetaType>
#include <QSharedPointer>
#include <QStringList>

#include <optional>

// One recorded signal: a name, a type and a column of the shared store. It owns no samples.
class KORVANE_EXPORT Channel
{
public:
    Channel() = default;
    // Copies every field but leaves the copy detached from the store and without custom colour.
    Channel(const Channel& other);
    Channel& operator=(const Channel&) = delete;
    virtual ~Channel();

    virtual int physNum() const { return m_physNum; }
    void setPhysNum(int physNum) { m_physNum = physNum; }
    QString name() const { return m_name; }
    void setName(const QString& name) { m_name = name; }
    QSharedPointer<OscillogramData> data() const { return m_data; }
    void setData(const QSharedPointer<OscillogramData>& data) { m_data = data; }
    DT::DataType dataType() const { return m_dataType; }
    void setDataType(DT::DataType type) { m_dataType = type; }
    int dataOffset() const { return m_dataOffset; }
    void setDataOffset(int offset) { m_dataOffset = offset; }
    int dataCount() const { return m_dataCount; }
    void setDataCount(int count) { m_dataCount = count; }
    unsigned short getLineBitMask() const { return m_lineBitMask; }
    void setLineBitMask(unsigned short mask) { m_lineBitMask = mask; }
    bool isPhysical() const { return m_isPhysical; }
    void setIsPhysical(bool physical) { m_isPhysical = physical; }
    bool isSelected() const { return m_isSelected; }
    void setIsSelected(bool selected) { m_isSelected = selected; }
    QStringList lineNames() const { return m_lineNames; }
    void setLineNames(const QStringList& names) { m_lineNames = names; }
    bool isInverted() const { return m_isInverted; }
    void setIsInverted(bool inverted) { m_isInverted = inverted; }
    std::optional<QColor> getCustomColor() const { return m_customColor; }
    void setCustomColor(const QColor& color) { m_customColor = color; }
    void removeCustomColor() { m_customColor.reset(); }

    // The raw stored number of the store's block of this channel's type; 0 for no type.
    // Inline: plots and calculations read whole columns through it.
    double getValue(int sample, int column) const
    {
        const OscillogramData* store = this->store();
        switch (m_dataType) {
        case DT::Int16:
            return store->int16ChannelValue(sample, column);
        case DT::Int32:
            return store->int32ChannelValue(sample, column);
        case DT::Float:
            return store->floatChannelValue(sample, column);
        case DT::Double:
            return store->doubleChannelValue(sample, column);
        case DT::Digital:
            return store->digitalChannelValue(sample, column) ? 1.0 : 0.0;
        default:
            return 0.0;
        }
    }

protected:
    // The store without a copy of the shared pointer, for reads in column loops.
    const OscillogramData* store() const { return m_data.data(); }

private:
    int m_physNum = 0;
    QString m_name;
    QSharedPointer<OscillogramData> m_data;
    DT::DataType m_dataType = DT::None;
    int m_dataOffset = 0;
    int m_dataCount = 0;
    unsigned short m_lineBitMask = 0;
    bool m_isPhysical = true;
    bool m_isSelected = false;
    QStringList m_lineNames;
    bool m_isInverted = false;
    std::optional<QColor> m_customColor;
};

Q_DECLARE_METATYPE(QSharedPointer<Channel>)
