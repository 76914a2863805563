#include "PlotRecords.h"
#include "Views/AnalogToolBar.h"
#include "Views/Commands/UndoCommands.h"
#include "Views/DigitalToolBar.h"
#include "Views/OscillogramViewModel.h"

#include <QFile>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>
#include <QUndoStack>

namespace {
constexpr int channel = 1;

QToolButton* button(QWidget& bar, const char* name)
{
    auto* found = bar.findChild<QToolButton*>(QString::fromLatin1(name));
    if (!found)
        qFatal("no button %s", name);
    return found;
}

// The buttons of a bar in their order from left to right.
QStringList buttonOrder(QWidget& bar)
{
    QList<QToolButton*> buttons = bar.findChildren<QToolButton*>();
    std::sort(buttons.begin(), buttons.end(), [](QToolButton* a, QToolButton* b) { return a->x() < b->x(); });
    QStringList names;
    for (QToolButton* b : buttons)
        names << b->objectName();
    return names;
}

// A model, a stack and a bar of the analogue row of channel 1, wired as the row list and the view
// wire them: the bar's signals gain the channel number and reach the producers of commands.
struct Row
{
    Row() : model(QSharedPointer<OscillogramViewModel>::create()), commands(&stack)
    {
        model->setOscillogram(PlotRecords::makeRecord(2, 1, 1000, 100));
        commands.setOscillogramViewModel(model);
        QObject::connect(&bar, &AnalogToolBar::sigIncMag, [this] { commands.slotIncMag(channel); });
        QObject::connect(&bar, &AnalogToolBar::sigDecMag, [this] { commands.slotDecMag(channel); });
        QObject::connect(&bar, &AnalogToolBar::sigIncH, [this] { commands.slotIncH(channel); });
        QObject::connect(&bar, &AnalogToolBar::sigDecH, [this] { commands.slotDecH(channel); });
        QObject::connect(&bar, &AnalogToolBar::sigFitMag, [this] { commands.slotFitMag(channel); });
        QObject::connect(&bar, &AnalogToolBar::sigReset, [this] { commands.slotReset(channel); });
        QObject::connect(&bar, &AnalogToolBar::sigHide, [this] { commands.slotHide(channel); });
        host.show();
    }

    void click(const char* name) { QTest::mouseClick(button(bar, name), Qt::LeftButton); }
    const QUndoCommand* lastCommand() const { return stack.command(stack.count() - 1); }

    QSharedPointer<OscillogramViewModel> model;
    QUndoStack stack;
    ViewCommands commands;
    // The bars stand over rows, inside other widgets, never as windows of their own.
    QWidget host;
    AnalogToolBar bar;
};
} // namespace

class TestRowToolBars : public QObject
{
    Q_OBJECT
private slots:
    void analogButtonsInOrderWithTheirTexts();
    void buttonsShowTheArrowCursorAndAnIcon();
    void magnitudeButtonsPushAmplitudeCommands();
    void heightButtonsPushHeightCommandsOfOppositeSense();
    void fitResetAndHideButtonsPushTheirCommands();
    void eachButtonEmitsOnlyItsSignal();
    void invertButtonReportsItsState();
    void stagesHideGroupsFromTheRight();
    void fitToWidthChoosesTheStage();
    void maskRoundsTheCorners();
    void barsAreOpaqueAndKeepTheirSize();
    void digitalInvertButton();
};

void TestRowToolBars::analogButtonsInOrderWithTheirTexts()
{
    QWidget host;
    AnalogToolBar bar(&host);
    host.show();
    QCOMPARE(buttonOrder(bar),
        QStringList({ "pb_increaseMagnitude", "pb_decreaseMagnitude", "pb_increaseHeight",
            "pb_decreaseHeight", "pb_fitMagnitude", "pb_resetChannel", "pb_hideChannel", "pb_inverted" }));
    QCOMPARE(button(bar, "pb_increaseMagnitude")->toolTip(), QStringLiteral("Увеличить амплитуду сигнала"));
    QCOMPARE(button(bar, "pb_decreaseMagnitude")->toolTip(), QStringLiteral("Уменьшить амплитуду сигнала"));
    QCOMPARE(button(bar, "pb_increaseHeight")->toolTip(), QStringLiteral("Уменьшить область отображения "));
    QCOMPARE(button(bar, "pb_decreaseHeight")->toolTip(), QStringLiteral("Увеличить область отображения "));
    QCOMPARE(button(bar, "pb_fitMagnitude")->toolTip(),
        QStringLiteral("Масштабировать сигнал к области отображения"));
    QCOMPARE(button(bar, "pb_resetChannel")->toolTip(), QStringLiteral("Отображение сигнала по умолчанию "));
    QCOMPARE(button(bar, "pb_hideChannel")->toolTip(), QStringLiteral("Скрыть сигнал"));
    QCOMPARE(button(bar, "pb_inverted")->toolTip(), QStringLiteral("Инвертировать сигнал"));
    QVERIFY(button(bar, "pb_inverted")->isCheckable());
}

void TestRowToolBars::buttonsShowTheArrowCursorAndAnIcon()
{
    AnalogToolBar analog;
    DigitalToolBar digital;
    QList<QToolButton*> buttons = analog.findChildren<QToolButton*>() + digital.findChildren<QToolButton*>();
    QCOMPARE(buttons.size(), 9);
    for (QToolButton* b : buttons) {
        QCOMPARE(b->cursor().shape(), Qt::ArrowCursor);
        QVERIFY2(!b->icon().pixmap(16, 16).isNull(), qPrintable(b->objectName()));
    }
    QVERIFY(QFile::exists(QStringLiteral(":/icons/plus.svg")));
    QVERIFY(QFile::exists(QStringLiteral(":/icons/minus.svg")));
}

void TestRowToolBars::magnitudeButtonsPushAmplitudeCommands()
{
    Row row;
    row.click("pb_increaseMagnitude");
    QCOMPARE(row.stack.count(), 1);
    QVERIFY(dynamic_cast<const SetChanMagCommand*>(row.lastCommand()));
    QCOMPARE(row.model->chanMag(channel), 4.0 / 3.0);
    QCOMPARE(row.model->chanMag(0), 1.0);

    row.click("pb_decreaseMagnitude");
    QCOMPARE(row.stack.count(), 2);
    QVERIFY(dynamic_cast<const SetChanMagCommand*>(row.lastCommand()));
    QCOMPARE(row.model->chanMag(channel), 4.0 / 3.0 * 0.75);
}

void TestRowToolBars::heightButtonsPushHeightCommandsOfOppositeSense()
{
    Row row;
    row.model->setChanRowMinHeight(channel, 10);
    row.model->setChanRowHeight(channel, 120);
    row.click("pb_increaseHeight");
    const auto* lower = dynamic_cast<const SetChanHCommand*>(row.lastCommand());
    QVERIFY(lower);
    // "Increase" lowers the row: 0.75 of 120.
    QCOMPARE(row.model->chanRowHeight(channel), 90);

    row.click("pb_decreaseHeight");
    // A second height command on the same channel merges with the first.
    QCOMPARE(row.stack.count(), 1);
    // 4/3 of 90, truncated.
    QCOMPARE(row.model->chanRowHeight(channel), 120);
    row.stack.undo();
    QCOMPARE(row.model->chanRowHeight(channel), 120);
    QVERIFY(!row.stack.canUndo());
}

void TestRowToolBars::fitResetAndHideButtonsPushTheirCommands()
{
    Row row;
    row.model->setChanMag(channel, 2.0);
    row.click("pb_fitMagnitude");
    QVERIFY(dynamic_cast<const FitChanMagCommand*>(row.lastCommand()));
    QCOMPARE(row.model->chanMag(channel), 1.0);

    row.model->setChanMag(channel, 3.0);
    row.click("pb_resetChannel");
    QVERIFY(dynamic_cast<const ResetChanCommand*>(row.lastCommand()));
    QCOMPARE(row.model->chanMag(channel), 1.0);

    row.click("pb_hideChannel");
    QVERIFY(dynamic_cast<const HideChanCommand*>(row.lastCommand()));
    QVERIFY(!row.model->isChannelVisible(channel));
    QCOMPARE(row.stack.count(), 3);
}

void TestRowToolBars::eachButtonEmitsOnlyItsSignal()
{
    QWidget host;
    AnalogToolBar bar(&host);
    host.show();
    const QList<QPair<const char*, void (AnalogToolBar::*)()>> pairs { { "pb_increaseMagnitude",
                                                                           &AnalogToolBar::sigIncMag },
        { "pb_decreaseMagnitude", &AnalogToolBar::sigDecMag },
        { "pb_increaseHeight", &AnalogToolBar::sigIncH }, { "pb_decreaseHeight", &AnalogToolBar::sigDecH },
        { "pb_fitMagnitude", &AnalogToolBar::sigFitMag }, { "pb_resetChannel", &AnalogToolBar::sigReset },
        { "pb_hideChannel", &AnalogToolBar::sigHide } };
    QList<QSharedPointer<QSignalSpy>> spies;
    for (const auto& pair : pairs)
        spies << QSharedPointer<QSignalSpy>::create(&bar, pair.second);
    for (int clicked = 0; clicked < pairs.size(); ++clicked) {
        QTest::mouseClick(button(bar, pairs[clicked].first), Qt::LeftButton);
        for (int s = 0; s < spies.size(); ++s)
            QCOMPARE(spies[s]->count(), s <= clicked ? 1 : 0);
    }
}

void TestRowToolBars::invertButtonReportsItsState()
{
    QWidget host;
    AnalogToolBar bar(&host);
    host.show();
    QSignalSpy spy(&bar, &AnalogToolBar::sigInvert);
    QTest::mouseClick(button(bar, "pb_inverted"), Qt::LeftButton);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.last().at(0).toBool(), true);
    QTest::mouseClick(button(bar, "pb_inverted"), Qt::LeftButton);
    QCOMPARE(spy.last().at(0).toBool(), false);

    // Following the channel changes the button and says nothing.
    bar.slotInvertChannel(true);
    QVERIFY(button(bar, "pb_inverted")->isChecked());
    QCOMPARE(spy.count(), 2);
}

void TestRowToolBars::stagesHideGroupsFromTheRight()
{
    QWidget host;
    AnalogToolBar bar(&host);
    host.show();
    const QStringList all { "pb_increaseMagnitude", "pb_decreaseMagnitude", "pb_increaseHeight",
        "pb_decreaseHeight", "pb_fitMagnitude", "pb_resetChannel", "pb_hideChannel", "pb_inverted" };
    const auto visible = [&bar, &all] {
        QStringList names;
        for (const QString& name : all) {
            if (button(bar, name.toLatin1().constData())->isVisible())
                names << name;
        }
        return names;
    };
    QCOMPARE(visible(), all);
    bar.set1Stage();
    QCOMPARE(visible(), all.mid(0, 6));
    bar.set2Stage();
    QCOMPARE(visible(), all.mid(0, 4));
    bar.setDefaultStage();
    QCOMPARE(visible(), all);
    QVERIFY(bar.defaultStageWidth() > bar.stage1Width());
    QVERIFY(bar.stage1Width() > bar.stage2Width());
}

void TestRowToolBars::fitToWidthChoosesTheStage()
{
    QWidget host;
    AnalogToolBar bar(&host);
    host.show();
    QToolButton* hide = button(bar, "pb_hideChannel");
    QToolButton* fit = button(bar, "pb_fitMagnitude");
    bar.fitToWidth(bar.defaultStageWidth());
    QVERIFY(hide->isVisible());
    bar.fitToWidth(bar.defaultStageWidth() - 1);
    QVERIFY(!hide->isVisible());
    QVERIFY(fit->isVisible());
    bar.fitToWidth(bar.stage1Width() - 1);
    QVERIFY(!fit->isVisible());
    QVERIFY(button(bar, "pb_decreaseHeight")->isVisible());
    bar.fitToWidth(10000);
    QVERIFY(hide->isVisible());
}

void TestRowToolBars::maskRoundsTheCorners()
{
    QWidget host;
    AnalogToolBar bar(&host);
    bar.resize(200, 24);
    host.show();
    QVERIFY(QTest::qWaitForWindowExposed(&host));
    const QRegion mask = bar.mask();
    QVERIFY(!mask.isEmpty());
    QVERIFY(!mask.contains(QPoint(0, 0)));
    QVERIFY(!mask.contains(QPoint(bar.width() - 1, bar.height() - 1)));
    QVERIFY(mask.contains(QPoint(bar.width() / 2, 0)));
    QVERIFY(mask.contains(QPoint(0, bar.height() / 2)));
}

void TestRowToolBars::barsAreOpaqueAndKeepTheirSize()
{
    // They stand over the plot of a row, which must not show through nor stretch them.
    AnalogToolBar analog;
    DigitalToolBar digital;
    for (QWidget* bar : { static_cast<QWidget*>(&analog), static_cast<QWidget*>(&digital) }) {
        QVERIFY(bar->autoFillBackground());
        QCOMPARE(bar->sizePolicy().horizontalPolicy(), QSizePolicy::Fixed);
        QCOMPARE(bar->sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
    }
}

void TestRowToolBars::digitalInvertButton()
{
    QWidget host;
    DigitalToolBar bar(&host);
    host.show();
    QCOMPARE(buttonOrder(bar), QStringList({ "pb_invert" }));
    QToolButton* invert = button(bar, "pb_invert");
    QCOMPARE(invert->toolTip(), QStringLiteral("Инвертировать сигнал"));
    QSignalSpy spy(&bar, &DigitalToolBar::sigInvert);
    QTest::mouseClick(invert, Qt::LeftButton);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.last().at(0).toBool(), true);
    bar.slotInvert(false);
    QVERIFY(!invert->isChecked());
    QCOMPARE(spy.count(), 1);
}

QTEST_MAIN(TestRowToolBars)
#include "tst_rowtoolbars.moc"
