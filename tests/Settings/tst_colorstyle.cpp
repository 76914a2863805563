#include "Settings/ColorStyle.h"

#include <QTest>

#include <array>

using KV::Cfg::ColorStyle;

namespace {
using Column = std::array<QRgb, 3>;

// The colour of a role, by the role's name, so that the table below can list the roles.
QRgb role(const ColorStyle& style, const QString& name)
{
    const std::pair<const char*, QRgb> roles[] = { { "background", style.background },
        { "discrete trace", style.discreteTrace }, { "selected trace", style.selectedTrace },
        { "phase A", style.phaseA }, { "phase B", style.phaseB }, { "phase C", style.phaseC },
        { "second component", style.secondComponent }, { "no phase", style.noPhase },
        { "failure and trigger line", style.failureLine }, { "marker line", style.markerLine },
        { "marker box fill", style.markerBoxFill }, { "marker box frame", style.markerBoxFrame },
        { "grid and zero line", style.grid }, { "current sample line", style.currentSampleLine },
        { "saved measure, start", style.savedMeasureStart },
        { "saved measure, finish", style.savedMeasureFinish }, { "anomaly", style.anomaly } };
    for (const auto& entry : roles) {
        if (name == QLatin1String(entry.first))
            return entry.second;
    }
    qFatal("unknown role %s", qPrintable(name));
    return 0;
}
} // namespace

class TestColorStyle : public QObject
{
    Q_OBJECT
private slots:
    void colours_data();
    void colours();
    void unknownNumberGivesStyle1_data();
    void unknownNumberGivesStyle1();
    void defaultIsStyle1();
    void selectionColour();
    void processWideStyle();
    void phaseTable_data();
    void phaseTable();
    void componentTable_data();
    void componentTable();
};

void TestColorStyle::colours_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<uint>("style0");
    QTest::addColumn<uint>("style1");
    QTest::addColumn<uint>("style2");
    auto row = [](const char* name, uint s0, uint s1, uint s2) {
        QTest::newRow(name) << QString::fromUtf8(name) << s0 << s1 << s2;
    };
    row("background", 0xFF004000, 0xFF212830, 0xFFFFFFFF);
    row("discrete trace", 0xFFFF7070, 0xFFFF8080, 0xFF000000);
    row("selected trace", 0xFFB4E6FF, 0xFFB4E6FF, 0xFFB4E6FF);
    row("phase A", 0xFFFFFF00, 0xFFFFFF70, 0xFF000000);
    row("phase B", 0xFF00FF00, 0xFF70FF70, 0xFF000000);
    row("phase C", 0xFFFF6060, 0xFFFF8080, 0xFF000000);
    row("second component", 0xFF0000FF, 0xFF12A0FF, 0xFF000000);
    row("no phase", 0xFF00FFC0, 0xFF00FFC0, 0xFF000000);
    row("failure and trigger line", 0xFF0080FF, 0xFF0080FF, 0xFF000000);
    row("marker line", 0xFF915695, 0xFF915695, 0xFF915695);
    row("marker box fill", 0xFFAAAA55, 0xFFAAAA55, 0xFFAAAA55);
    row("marker box frame", 0xFFFFFF00, 0xFFFFFF00, 0xFFFFFF00);
    row("grid and zero line", 0xFF306030, 0xFF626262, 0xFF626262);
    row("current sample line", 0xFFFFFFFF, 0xFFFFFFFF, 0xFF000000);
    row("saved measure, start", 0xFF408040, 0xFF408040, 0xFF000000);
    row("saved measure, finish", 0xFFBF8040, 0xFFBF8040, 0xFF000000);
    row("anomaly", 0xFFDEE2E6, 0xFFDEE2E6, 0xFFF50000);
}

void TestColorStyle::colours()
{
    QFETCH(QString, name);
    QFETCH(uint, style0);
    QFETCH(uint, style1);
    QFETCH(uint, style2);
    QCOMPARE(role(ColorStyle(0), name), QRgb(style0));
    QCOMPARE(role(ColorStyle(1), name), QRgb(style1));
    QCOMPARE(role(ColorStyle(2), name), QRgb(style2));
}

void TestColorStyle::unknownNumberGivesStyle1_data()
{
    QTest::addColumn<int>("number");
    QTest::newRow("3") << 3;
    QTest::newRow("-1") << -1;
    QTest::newRow("100") << 100;
}

void TestColorStyle::unknownNumberGivesStyle1()
{
    QFETCH(int, number);
    const ColorStyle style(number);
    QCOMPARE(style.number(), 1);
    QCOMPARE(style.background, QRgb(0xFF212830));
    QCOMPARE(style.phaseA, QRgb(0xFFFFFF70));
}

void TestColorStyle::defaultIsStyle1()
{
    QCOMPARE(ColorStyle().number(), 1);
    QCOMPARE(ColorStyle().background, QRgb(0xFF212830));
    // Nothing has set a style in this process yet.
    QCOMPARE(ColorStyle::current().number(), 1);
}

void TestColorStyle::selectionColour()
{
    for (int style = 0; style <= 2; ++style)
        QCOMPARE(ColorStyle(style).selection, QColor(180, 230, 255));
}

void TestColorStyle::processWideStyle()
{
    const ColorStyle* address = &ColorStyle::current();
    ColorStyle::setCurrent(2);
    QCOMPARE(ColorStyle::current().number(), 2);
    QCOMPARE(ColorStyle::current().background, QRgb(0xFFFFFFFF));
    // Holders of the reference see the change.
    QCOMPARE(address->number(), 2);
    ColorStyle::setCurrent(0);
    QCOMPARE(address->background, QRgb(0xFF004000));
    ColorStyle::setCurrent(9);
    QCOMPARE(ColorStyle::current().number(), 1);
}

void TestColorStyle::phaseTable_data()
{
    QTest::addColumn<int>("phase");
    QTest::addColumn<QString>("role");
    QTest::newRow("0 no phase") << 0 << "no phase";
    QTest::newRow("1 phase A") << 1 << "phase A";
    QTest::newRow("2 phase B") << 2 << "phase B";
    QTest::newRow("3 phase C") << 3 << "phase C";
    QTest::newRow("4 falls back to no phase") << 4 << "no phase";
    QTest::newRow("-1 falls back to no phase") << -1 << "no phase";
}

void TestColorStyle::phaseTable()
{
    QFETCH(int, phase);
    QFETCH(QString, role);
    for (int number = 0; number <= 2; ++number) {
        const ColorStyle style(number);
        QCOMPARE(style.phaseColor(phase), ::role(style, role));
    }
}

void TestColorStyle::componentTable_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("role");
    QTest::newRow("0 phase B") << 0 << "phase B";
    QTest::newRow("1 second component") << 1 << "second component";
    QTest::newRow("2 phase C") << 2 << "phase C";
    QTest::newRow("3 falls back to phase B") << 3 << "phase B";
}

void TestColorStyle::componentTable()
{
    QFETCH(int, column);
    QFETCH(QString, role);
    for (int number = 0; number <= 2; ++number) {
        const ColorStyle style(number);
        QCOMPARE(style.componentColor(column), ::role(style, role));
    }
}

QTEST_GUILESS_MAIN(TestColorStyle)
#include "tst_colorstyle.moc"
