#pragma once

#include "korvane_export.h"

#include <QList>
#include <QStringList>

#include <array>

// A piece of power equipment that a record observes, with the record's channel numbers (from 0)
// by role. rpDNumbers counts digital channels; the other six lists count analogue ones.
class KORVANE_EXPORT Line
{
public:
    QString name() const { return m_name; }
    void setName(const QString& name) { m_name = name; }
    unsigned short id() const { return m_id; }
    // Also sets the line's bit in a 16-bit mask: line 1 has bit 1, line 2 bit 2, and lines
    // above 16 have none left.
    void setLineID(const unsigned short& id);
    unsigned short bit() const { return m_bit; }
    QString shortName() const { return m_shortName; }
    void setShortName(const QString& shortName) { m_shortName = shortName; }
    QString vtID() const { return m_vtID; }
    void setVtID(const QString& vtID) { m_vtID = vtID; }
    QString ctID() const { return m_ctID; }
    void setCtID(const QString& ctID) { m_ctID = ctID; }
    QString unit() const { return m_unit; }
    void setUnit(const QString& unit) { m_unit = unit; }
    double voltage() const { return m_voltage; }
    void setVoltage(double voltage) { m_voltage = voltage; }
    double z0() const { return m_z0; }
    void setZ0(double z0) { m_z0 = z0; }
    double z1() const { return m_z1; }
    void setZ1(double z1) { m_z1 = z1; }

    QList<unsigned short> vtNumbers() const { return m_vtNumbers; }
    QList<unsigned short> ctNumbers() const { return m_ctNumbers; }
    QList<unsigned short> rpNumbers() const { return m_rpNumbers; }
    QList<unsigned short> rpDNumbers() const { return m_rpDNumbers; }
    QList<unsigned short> fNumbers() const { return m_fNumbers; }
    QList<unsigned short> esNumbers() const { return m_esNumbers; }
    QList<unsigned short> ocsNumbers() const { return m_ocsNumbers; }

    void setVtNumbers(const QList<unsigned short>& numbers) { m_vtNumbers = numbers; }
    void setCtNumbers(const QList<unsigned short>& numbers) { m_ctNumbers = numbers; }
    void setRpNumbers(const QList<unsigned short>& numbers);
    void setRpDNumbers(const QList<unsigned short>& numbers);
    void setFNumbers(const QList<unsigned short>& numbers) { m_fNumbers = numbers; }
    void setEsNumbers(const QList<unsigned short>& numbers) { m_esNumbers = numbers; }
    void setOcsNumbers(const QList<unsigned short>& numbers) { m_ocsNumbers = numbers; }
    void setVtNumbers(const QStringList& numbers) { m_vtNumbers = convertList(numbers); }
    void setCtNumbers(const QStringList& numbers) { m_ctNumbers = convertList(numbers); }
    void setRpNumbers(const QStringList& numbers) { m_rpNumbers = convertList(numbers); }
    void setRpDNumbers(const QStringList& numbers) { m_rpDNumbers = convertList(numbers); }
    void setFNumbers(const QStringList& numbers) { m_fNumbers = convertList(numbers); }
    void setEsNumbers(const QStringList& numbers) { m_esNumbers = convertList(numbers); }
    void setOcsNumbers(const QStringList& numbers) { m_ocsNumbers = convertList(numbers); }
    void appendRpChannel(unsigned short channel) { m_rpNumbers.append(channel); }
    void appendRpDChannel(unsigned short channel) { m_rpDNumbers.append(channel); }

    static QStringList convertList(const QList<unsigned short>& numbers);
    // A text that is no decimal number is stored as 0.
    static QList<unsigned short> convertList(const QStringList& numbers);

    // Searches the six analogue lists; digital numbers are of another kind.
    bool contains(unsigned short channel) const;
    void remapNumber(unsigned short from, unsigned short to);
    void removeDigitalChannelConnection(int number);
    void removeAnalogChannelConnection(int number);

    static void moveConnectionsAfterNumber(QList<unsigned short>& list, int number);
    static void uniqueLineSignals(QList<unsigned short>& list);
    static void remap(QList<unsigned short>& list, unsigned short from, unsigned short to);

private:
    // The six lists that count analogue channels, in the order of the searches.
    template<typename Self> static auto analogListsOf(Self& self)
    {
        return std::array { &self.m_vtNumbers, &self.m_ctNumbers, &self.m_rpNumbers, &self.m_fNumbers,
            &self.m_esNumbers, &self.m_ocsNumbers };
    }

    QString m_name;
    unsigned short m_id = 0;
    QString m_shortName;
    QString m_vtID;
    QString m_ctID;
    unsigned short m_bit = 0;
    QString m_unit;
    double m_voltage = 0.0;
    double m_z0 = 0.0;
    double m_z1 = 0.0;
    QList<unsigned short> m_vtNumbers;
    QList<unsigned short> m_ctNumbers;
    QList<unsigned short> m_rpNumbers;
    QList<unsigned short> m_rpDNumbers;
    QList<unsigned short> m_fNumbers;
    QList<unsigned short> m_esNumbers;
    QList<unsigned short> m_ocsNumbers;
};
