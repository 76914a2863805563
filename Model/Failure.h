#pragma once

#include "korvane_export.h"

#include <QString>

// A fault or trigger block of the record, as a .inf block reports it.
class KORVANE_EXPORT Failure
{
public:
    Failure(const QString& reason, int blockNum);

    int blockNum() const { return m_blockNum; }
    void setBlockNum(int blockNum) { m_blockNum = blockNum; }
    QString reason() const { return m_reason; }
    void setReason(const QString& reason) { m_reason = reason; }
    int physicalNumber() const { return m_physicalNumber; }
    void setPhysicalNumber(int number) { m_physicalNumber = number; }
    int lineId() const { return m_lineId; }
    void setLineId(int lineId) { m_lineId = lineId; }

private:
    int m_blockNum = 0;
    QString m_reason;
    int m_physicalNumber = 0;
    int m_lineId = 0;
};
