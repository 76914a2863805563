#include "Line.h"

#include <algorithm>

void Line::setLineID(const unsigned short& id)
{
    m_id = id;
    m_bit = static_cast<unsigned short>(1u << ((id - 1) & 31));
}

void Line::setRpNumbers(const QList<unsigned short>& numbers)
{
    m_rpNumbers = numbers;
    uniqueLineSignals(m_rpNumbers);
}

void Line::setRpDNumbers(const QList<unsigned short>& numbers)
{
    m_rpDNumbers = numbers;
    uniqueLineSignals(m_rpDNumbers);
}

QStringList Line::convertList(const QList<unsigned short>& numbers)
{
    QStringList texts;
    texts.reserve(numbers.size());
    for (unsigned short number : numbers)
        texts.append(QString::number(number));
    return texts;
}

QList<unsigned short> Line::convertList(const QStringList& numbers)
{
    QList<unsigned short> values;
    values.reserve(numbers.size());
    for (const QString& text : numbers)
        values.append(static_cast<unsigned short>(text.toInt(nullptr, 10)));
    return values;
}

bool Line::contains(unsigned short channel) const
{
    for (const auto* list : analogListsOf(*this)) {
        if (list->contains(channel))
            return true;
    }
    return false;
}

void Line::remapNumber(unsigned short from, unsigned short to)
{
    for (auto* list : analogListsOf(*this))
        remap(*list, from, to);
}

void Line::removeDigitalChannelConnection(int number)
{
    moveConnectionsAfterNumber(m_rpDNumbers, number);
}

void Line::removeAnalogChannelConnection(int number)
{
    for (auto* list : analogListsOf(*this))
        moveConnectionsAfterNumber(*list, number);
}

void Line::moveConnectionsAfterNumber(QList<unsigned short>& list, int number)
{
    const int removed = list.indexOf(static_cast<unsigned short>(number));
    for (unsigned short& entry : list) {
        if (entry > number)
            --entry;
    }
    if (removed >= 0 && number >= 0 && number <= 0xFFFF)
        list.removeAt(removed);
}

void Line::uniqueLineSignals(QList<unsigned short>& list)
{
    std::sort(list.begin(), list.end());
    list.erase(std::unique(list.begin(), list.end()), list.end());
}

void Line::remap(QList<unsigned short>& list, unsigned short from, unsigned short to)
{
    const int index = list.indexOf(from);
    if (index >= 0)
        list[index] = to;
}
