#include "Model/PreciseDateTime.h"

#include <QTest>

namespace {
// 5 March 2019, 14:07:09 and 1250 microseconds, three hours east of UTC.
PreciseDateTime sampleStamp()
{
    return PreciseDateTime(2019, 3, 5, 14, 7, 9, 1250, 3 * 3600);
}

// Seconds from the epoch of 2019-03-05 11:07:09 UTC, from the calendar.
constexpr long long sampleEpochSeconds = 1551784029;
} // namespace

class TestPreciseDateTime : public QObject
{
    Q_OBJECT
private slots:
    void defaultIsEpochWithZeroMicroseconds()
    {
        const PreciseDateTime value;
        QCOMPARE(value.toDateTime().toSecsSinceEpoch(), 0);
        QCOMPARE(value.uSec(), 0);
    }

    void calendarConstructorPutsMillisecondsIntoDateTime()
    {
        const PreciseDateTime value = sampleStamp();
        QCOMPARE(value.toDateTime().time().msec(), 1);
        QCOMPARE(value.uSec(), 1250);
        QCOMPARE(value.offsetFromUtc(), 3 * 3600);
        QCOMPARE(value.toDateTime().timeSpec(), Qt::OffsetFromUTC);
    }

    void calendarConstructorKeepsOutOfRangeMicroseconds()
    {
        // A nine-digit COMTRADE fraction reaches the field unscaled.
        const PreciseDateTime value(2020, 1, 1, 0, 0, 0, 123456789, 0);
        QCOMPARE(value.uSec(), 123456789LL);
    }

    void toUSecsSinceEpochIgnoresMillisecondsOfDateTime()
    {
        QCOMPARE(sampleStamp().toUSecsSinceEpoch(), sampleEpochSeconds * 1000000 + 1250);
    }

    void fromUSecsSinceEpochShowsUtcFieldsUnderOffset()
    {
        const PreciseDateTime value
            = PreciseDateTime::fromUSecsSinceEpoch(sampleEpochSeconds * 1000000ULL + 7, 0);
        QCOMPARE(value.toDateTime().time(), QTime(11, 7, 9));
        QCOMPARE(value.uSec(), 7);
        // setOffsetFromUtc keeps the clock fields, so a non-zero offset shifts the instant.
        const PreciseDateTime shifted
            = PreciseDateTime::fromUSecsSinceEpoch(sampleEpochSeconds * 1000000ULL, 3600);
        QCOMPARE(shifted.toDateTime().time(), QTime(11, 7, 9));
        QCOMPARE(shifted.toUSecsSinceEpoch(), (sampleEpochSeconds - 3600) * 1000000);
    }

    void fromSecondsKeepsMicrosecondsAsGiven()
    {
        const PreciseDateTime value = PreciseDateTime::from(sampleEpochSeconds, 2500000LL, 0);
        QCOMPARE(value.uSec(), 2500000LL);
        QCOMPARE(value.toDateTime().time(), QTime(11, 7, 9));
    }

    void fromFractionTruncates()
    {
        const QDateTime base = QDateTime::fromSecsSinceEpoch(sampleEpochSeconds, Qt::OffsetFromUTC, 0);
        QCOMPARE(PreciseDateTime::from(base, 0.0000019, 0).uSec(), 1LL);
        QCOMPARE(PreciseDateTime::from(base, 0.5, 0).uSec(), 500000LL);
    }

    void uSecsToAndMSecsTo()
    {
        const PreciseDateTime a = sampleStamp();
        const PreciseDateTime b = a.addUSec(2500);
        QCOMPARE(a.uSecsTo(b), 2500LL);
        QCOMPARE(b.uSecsTo(a), -2500LL);
        QCOMPARE(a.mSecsTo(b), 2LL);
    }

    void addUSecCarries_data()
    {
        QTest::addColumn<long long>("start");
        QTest::addColumn<long long>("delta");
        QTest::addColumn<int>("secondsMoved");
        QTest::addColumn<long long>("uSec");
        QTest::newRow("zero keeps 999999") << 999999LL << 0LL << 0 << 999999LL;
        QTest::newRow("one carries to the next second") << 999999LL << 1LL << 1 << 0LL;
        QTest::newRow("minus one borrows from the previous second") << 0LL << -1LL << -1 << 999999LL;
        QTest::newRow("minus a whole second leaves the field at 1000000")
            << 0LL << -1000000LL << -2 << 1000000LL;
        QTest::newRow("two and a half seconds ahead") << 250000LL << 2250000LL << 2 << 500000LL;
    }

    void addUSecCarries()
    {
        QFETCH(long long, start);
        QFETCH(long long, delta);
        QFETCH(int, secondsMoved);
        QFETCH(long long, uSec);
        const QDateTime base = QDateTime::fromSecsSinceEpoch(sampleEpochSeconds, Qt::OffsetFromUTC, 0);
        const PreciseDateTime value(base, start);
        const PreciseDateTime result = value.addUSec(delta);
        QCOMPARE(result.toDateTime(), base.addSecs(secondsMoved));
        QCOMPARE(result.uSec(), uSec);
        // Whatever the fields, the instant moves by exactly the delta.
        QCOMPARE(result.toUSecsSinceEpoch() - value.toUSecsSinceEpoch(), delta);
    }

    void recalcTimeZoneKeepsInstant()
    {
        PreciseDateTime value = sampleStamp();
        const long long instant = value.toUSecsSinceEpoch();
        value.recalcTimeZone(5 * 3600);
        QCOMPARE(value.offsetFromUtc(), 5 * 3600);
        QCOMPARE(value.toDateTime().time().hour(), 16);
        QCOMPARE(value.toUSecsSinceEpoch(), instant);
    }

    void setOffsetFromUtcMovesInstant()
    {
        PreciseDateTime value = sampleStamp();
        const long long instant = value.toUSecsSinceEpoch();
        value.setOffsetFromUtc(0);
        QCOMPARE(value.toDateTime().time().hour(), 14);
        QCOMPARE(value.toUSecsSinceEpoch() - instant, 3LL * 3600 * 1000000);
    }

    void differenceCountsMillisecondsTwiceForCalendarValues()
    {
        // 1250 us after the second: 1 ms in the QDateTime and 1250 in uSec, so the sum is 2250.
        const PreciseDateTime a = sampleStamp();
        const PreciseDateTime whole(2019, 3, 5, 14, 7, 9, 0, 3 * 3600);
        const PreciseDateTime d = a - whole;
        QCOMPARE(d.uSec(), 2250LL);
        QCOMPARE(d.toDateTime().toMSecsSinceEpoch(), 2LL);
        QCOMPARE(whole.uSecsTo(a), 1250LL);
    }

    void comparisonUsesFieldsAsTheyStand()
    {
        const PreciseDateTime calendar = sampleStamp();
        // from() shows the UTC clock fields of its seconds under the offset, so shift them by the offset.
        const PreciseDateTime sameInstant
            = PreciseDateTime::from(sampleEpochSeconds + 3 * 3600, 1250, 3 * 3600);
        QCOMPARE(calendar.toUSecsSinceEpoch(), sameInstant.toUSecsSinceEpoch());
        QVERIFY(!(calendar == sameInstant));
        QVERIFY(sameInstant < calendar);
        QVERIFY(sameInstant <= calendar);
        QVERIFY(calendar <= calendar);
        QVERIFY(!(calendar < calendar));
        const PreciseDateTime later = calendar.addUSec(1);
        QVERIFY(calendar.addUSec(0) < later);
    }

    void textForms()
    {
        const PreciseDateTime value = sampleStamp();
        QCOMPARE(value.toString(), QStringLiteral("05.03.2019 14:07:09.001250"));
        QCOMPARE(value.toStringMs(), QStringLiteral("14:07:09:001"));
        QCOMPARE(value.timeToString(), QStringLiteral("14:07:09.001250"));
        QCOMPARE(value.toCMRString(), std::string("05/03/2019,14:07:09.001250"));
    }

    void toStringMsShowsZerosWhenOnlyMicrosecondsHoldThem()
    {
        const PreciseDateTime value = PreciseDateTime::from(sampleEpochSeconds, 1250, 0);
        QCOMPARE(value.toStringMs(), QStringLiteral("11:07:09:000"));
    }

    void cmrStringOfDefaultBeginsWithEpochDate()
    {
        const QString expected = QDateTime::fromSecsSinceEpoch(0).toString(QStringLiteral("dd/MM/yyyy"));
        QVERIFY(QString::fromStdString(PreciseDateTime().toCMRString()).startsWith(expected));
        QVERIFY(QString::fromStdString(PreciseDateTime().toCMRString()).endsWith(QLatin1String(".000000")));
    }
};

QTEST_GUILESS_MAIN(TestPreciseDateTime)
#include "tst_precisedatetime.moc"
