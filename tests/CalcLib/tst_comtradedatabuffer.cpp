#include "CalcLib/ComtradeDataBuffer.h"

#include <QTest>

#include <cmath>
#include <cstring>
#include <limits>
#include <vector>

class TestComtradeDataBuffer : public QObject
{
    Q_OBJECT

    // The bytes of the values set as one run from slot 1 on against the bytes set one by one.
    template<typename T, typename SetOne>
    static void checkRun(int format, const std::vector<T>& values, SetOne setOne)
    {
        const uint32_t count = uint32_t(values.size()) + 1;
        ComtradeDataBuffer run;
        ComtradeDataBuffer single;
        QCOMPARE(run.init(1, 1, count, 0, format), 0);
        QCOMPARE(single.init(1, 1, count, 0, format), 0);
        run.sample(0, 0).setAnalogs(1, values.data(), uint32_t(values.size()));
        for (uint32_t i = 0; i < values.size(); ++i)
            setOne(single.sample(0, 0), i + 1, values[i]);
        const size_t bytes = size_t(count) * ComtradeDataBuffer::valueWidth(format);
        QVERIFY2(std::memcmp(run.sample(0, 0).analogValues, single.sample(0, 0).analogValues, bytes) == 0,
            qPrintable(QStringLiteral("format %1, %2 values").arg(format).arg(values.size())));
    }

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

    // A run of values takes the same bytes as the values set one by one, in every format and
    // from every stored type, edge values included: a run only looks at the format once.
    void runsEqualValueByValue()
    {
        const double nan = std::numeric_limits<double>::quiet_NaN();
        const double inf = std::numeric_limits<double>::infinity();
        const std::vector<double> doubles { 0.1, -2.9, 70000.0, 3.99, -0.5, 1e300, -1e300, nan, inf, -inf,
            4e9 };
        const std::vector<float> floats { 0.1f, -2.9f, 70000.0f, 3.99f, -0.5f, 3e38f, float(nan),
            float(inf) };
        const std::vector<int32_t> ints { 0x12348001, -1, 32767, -32768, 70000, INT32_MIN, INT32_MAX };
        const std::vector<int16_t> shorts { 0, -1, 32767, -32768, 1234 };
        for (int format = 0; format <= 3; ++format) {
            checkRun(format, doubles,
                [](ComtradeSample& s, uint32_t i, double v) { s.setAnalogFromDouble(i, v); });
            checkRun(
                format, floats, [](ComtradeSample& s, uint32_t i, float v) { s.setAnalogFromDouble(i, v); });
            checkRun(
                format, ints, [](ComtradeSample& s, uint32_t i, int32_t v) { s.setAnalogFromInt(i, v); });
            checkRun(
                format, shorts, [](ComtradeSample& s, uint32_t i, int16_t v) { s.setAnalogFromInt(i, v); });
        }
    }

    // The rules themselves on a run: into 16 bits truncated toward zero, keeping the low half.
    void aRunIntoSixteenBits()
    {
        ComtradeDataBuffer buffer;
        QCOMPARE(buffer.init(1, 1, 3, 0, 1), 0);
        const double values[] = { -2.9, 70000.0, 3.99 };
        buffer.sample(0, 0).setAnalogs(0, values, 3);
        QCOMPARE(buffer.sample(0, 0).analogAsDouble(0), -2.0);
        QCOMPARE(buffer.sample(0, 0).analogAsDouble(1), double(70000 - 65536));
        QCOMPARE(buffer.sample(0, 0).analogAsDouble(2), 3.0);
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
