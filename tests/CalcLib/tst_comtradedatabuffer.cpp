#include "CalcLib/ComtradeDataBuffer.h"

#include <QTest>

#include <cmath>
#include <cstring>

class TestComtradeDataBuffer : public QObject
{
    Q_OBJECT
private slots:
    void emptyBufferHasFormatThree()
    {
        ComtradeDataBuffer buffer;
        QVERIFY(buffer.isEmpty());
        QCOMPARE(buffer.format(), 3);
        QCOMPARE(buffer.blockCount(), 0u);
    }

    void valueWidthFollowsFormat_data()
    {
        QTest::addColumn<int>("format");
        QTest::addColumn<uint>("width");
        QTest::newRow("ASCII keeps doubles") << 0 << 8u;
        QTest::newRow("binary") << 1 << 2u;
        QTest::newRow("binary32") << 2 << 4u;
        QTest::newRow("float32") << 3 << 4u;
    }

    void valueWidthFollowsFormat()
    {
        QFETCH(int, format);
        QFETCH(uint, width);
        ComtradeDataBuffer buffer;
        QCOMPARE(buffer.init(1, 2, 3, 1, format), 0);
        QCOMPARE(buffer.sample(0, 1).valueWidth, width);
        QCOMPARE(buffer.sample(0, 1).format, format);
        QCOMPARE(buffer.sample(0, 1).analogCount, 3u);
        QCOMPARE(buffer.sample(0, 1).digitalCount, 1u);
    }

    void oneAllocationInStatedOrder()
    {
        ComtradeDataBuffer buffer;
        QCOMPARE(buffer.init(2, 3, 4, 5, 0), 0);
        const unsigned char* base = buffer.memory();
        const auto at = [base](const void* p) { return static_cast<const unsigned char*>(p) - base; };
        QCOMPARE(at(&buffer.block(0)), ptrdiff_t(0));
        const ComtradeSample& first = buffer.sample(0, 0);
        const ComtradeSample& last = buffer.sample(1, 2);
        QVERIFY(at(&first) >= ptrdiff_t(2 * sizeof(ComtradeDataBlock)));
        QCOMPARE(&last - &first, ptrdiff_t(5));
        QVERIFY(at(first.analogValues) >= at(&last) + ptrdiff_t(sizeof(ComtradeSample)));
        QCOMPARE(at(last.analogValues) - at(first.analogValues), ptrdiff_t(5 * 4 * 8));
        QVERIFY(at(first.digitalValues) >= at(last.analogValues) + 4 * 8);
        QCOMPARE(last.digitalValues - first.digitalValues, ptrdiff_t(5 * 5));
        QCOMPARE(reinterpret_cast<uintptr_t>(first.analogValues) % alignof(double), uintptr_t(0));
    }

    void clearEmpties()
    {
        ComtradeDataBuffer buffer;
        QCOMPARE(buffer.init(1, 10, 2, 2, 1), 0);
        buffer.clear();
        QVERIFY(buffer.isEmpty());
        QVERIFY(buffer.memory() == nullptr);
        QCOMPARE(buffer.format(), 3);
    }

    void overflowingSizesFail()
    {
        ComtradeDataBuffer buffer;
        QCOMPARE(buffer.init(0xFFFFFFFFu, 0xFFFFFFFFu, 0xFFFFFFFFu, 0xFFFFFFFFu, 0), -1);
        QVERIFY(buffer.isEmpty());
    }

    void conversions_data()
    {
        QTest::addColumn<int>("format");
        QTest::addColumn<double>("input");
        QTest::addColumn<double>("stored");
        QTest::newRow("double kept in ASCII") << 0 << 1.25 << 1.25;
        QTest::newRow("16-bit truncates toward zero") << 1 << -2.9 << -2.0;
        QTest::newRow("16-bit keeps low half of 70000") << 1 << 70000.0 << double(70000 - 65536);
        QTest::newRow("32-bit truncates toward zero") << 2 << 3.99 << 3.0;
        QTest::newRow("float32 rounds to float") << 3 << 0.1 << double(0.1f);
    }

    void conversions()
    {
        QFETCH(int, format);
        QFETCH(double, input);
        QFETCH(double, stored);
        ComtradeDataBuffer buffer;
        QCOMPARE(buffer.init(1, 1, 1, 0, format), 0);
        buffer.sample(0, 0).setAnalogFromDouble(0, input);
        QCOMPARE(buffer.sample(0, 0).analogAsDouble(0), stored);
    }

    void integerToSixteenBitsKeepsLowHalf()
    {
        ComtradeDataBuffer buffer;
        QCOMPARE(buffer.init(1, 1, 1, 0, 1), 0);
        buffer.sample(0, 0).setAnalogFromInt(0, 0x12348001);
        int16_t raw;
        std::memcpy(&raw, buffer.sample(0, 0).analogValues, 2);
        QCOMPARE(raw, int16_t(uint16_t(0x8001)));
    }
};

QTEST_GUILESS_MAIN(TestComtradeDataBuffer)
#include "tst_comtradedatabuffer.moc"
