#include "Calc/UnitForCalcSignal.h"

#include <QTest>

namespace {
enum Kind { Voltage, Current, Resistance, ActivePower, ReactivePower, Frequency, Angle, Impedance, None };
} // namespace

Q_DECLARE_METATYPE(Kind)

class TestUnitForCalcSignal : public QObject
{
    Q_OBJECT
private slots:
    void unitAndKind_data()
    {
        QTest::addColumn<int>("code");
        QTest::addColumn<Kind>("kind");
        QTest::addColumn<QString>("unit");
        const QString volt = QStringLiteral("В");
        const QString ohm = QStringLiteral("Ом");
        // The unit of a current is a Latin A.
        const QString ampere = QStringLiteral("A");
        auto row = [](int code, Kind kind, const QString& unit) {
            QTest::newRow(qPrintable(QStringLiteral("code %1").arg(code))) << code << kind << unit;
        };
        for (int code : { 0, 1, 2, 3, 8, 9, 10 })
            row(code, Voltage, volt);
        for (int code : { 4, 5, 6, 7, 11, 12, 13 })
            row(code, Current, ampere);
        for (int code = 14; code <= 27; ++code)
            row(code, Resistance, ohm);
        for (int code : { 28, 30, 32, 34 })
            row(code, ActivePower, QStringLiteral("Вт"));
        for (int code : { 29, 31, 33, 35 })
            row(code, ReactivePower, QStringLiteral("вар"));
        for (int code : { 36, 37, 38 })
            row(code, Impedance, QString());
        row(39, Frequency, QStringLiteral("Гц"));
        for (int code = 40; code <= 44; ++code)
            row(code, Angle, QStringLiteral("Град"));
        for (int code : { -1, 45, 46, 1000 })
            row(code, None, QString());
    }

    void unitAndKind()
    {
        QFETCH(int, code);
        QFETCH(Kind, kind);
        QFETCH(QString, unit);
        QCOMPARE(UnitForCalcSignal::unit(code), unit);
        QCOMPARE(UnitForCalcSignal::isVoltage(code), kind == Voltage);
        QCOMPARE(UnitForCalcSignal::isCurrent(code), kind == Current);
        QCOMPARE(UnitForCalcSignal::isResistance(code), kind == Resistance);
        QCOMPARE(UnitForCalcSignal::isActivationPower(code), kind == ActivePower);
        QCOMPARE(UnitForCalcSignal::isReactivePower(code), kind == ReactivePower);
        QCOMPARE(UnitForCalcSignal::isFreq(code), kind == Frequency);
        QCOMPARE(UnitForCalcSignal::isAngle(code), kind == Angle);
        QCOMPARE(UnitForCalcSignal::isSineSignal(code), code >= 0 && code <= 13);
    }
};

QTEST_GUILESS_MAIN(TestUnitForCalcSignal)
#include "tst_unitforcalcsignal.moc"
