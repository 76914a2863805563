// Mouse input goes through the window system, so that moves carry the held buttons.
#define QTEST_QPA_MOUSE_HANDLING

#include "Views/MouseEventsToSignals.h"

#include <QSignalSpy>
#include <QTest>
#include <QWidget>

namespace {
QList<int> ints(const QSignalSpy& spy)
{
    QList<int> values;
    for (const auto& call : spy)
        values << call.at(0).toInt();
    return values;
}
} // namespace

class TestMouseEventsToSignals : public QObject
{
    Q_OBJECT
private slots:
    void init()
    {
        m_widget.reset(new QWidget);
        m_widget->resize(400, 100);
        m_filter = new MouseEventsToSignals(m_widget.data());
        m_widget->installEventFilter(m_filter);
        m_widget->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_widget.data()));
    }
    void cleanup() { m_widget.reset(); }

    void pressAndReleaseWalkTheStates_data();
    void pressAndReleaseWalkTheStates();
    void leftDragReportsFromPressAndSteps();
    void rightDragAsksForScaleStepsByDirection();
    void stepsBelowOneAreOne();
    void otherButtonsAreIgnoredWhileOneIsHeld();
    void releaseRequestDropsTheStateWithoutAnEvent();
    void eventsItUsesAreAccepted();

private:
    QScopedPointer<QWidget> m_widget;
    MouseEventsToSignals* m_filter = nullptr;
};

void TestMouseEventsToSignals::pressAndReleaseWalkTheStates_data()
{
    QTest::addColumn<int>("buttonNumber");
    QTest::addColumn<QByteArray>("pressed");
    QTest::addColumn<QByteArray>("released");
    QTest::newRow("left") << int(Qt::LeftButton) << QByteArray(SIGNAL(leftButtonPressed(QPoint)))
                          << QByteArray(SIGNAL(leftButtonReleased(QPoint)));
    QTest::newRow("middle") << int(Qt::MiddleButton) << QByteArray(SIGNAL(middleButtonPressed(QPoint)))
                            << QByteArray(SIGNAL(middleButtonReleased(QPoint)));
    QTest::newRow("right") << int(Qt::RightButton) << QByteArray(SIGNAL(rightButtonPressed(QPoint)))
                           << QByteArray(SIGNAL(rightButtonReleased(QPoint)));
}

void TestMouseEventsToSignals::pressAndReleaseWalkTheStates()
{
    QFETCH(int, buttonNumber);
    const auto button = Qt::MouseButton(buttonNumber);
    QFETCH(QByteArray, pressed);
    QFETCH(QByteArray, released);
    QSignalSpy pressSpy(m_filter, pressed.constData());
    QSignalSpy releaseSpy(m_filter, released.constData());
    QVERIFY(m_filter->isIdle());
    QTest::mousePress(m_widget.data(), button, {}, QPoint(50, 40));
    QCOMPARE(pressSpy.count(), 1);
    QCOMPARE(pressSpy.at(0).at(0).toPoint(), QPoint(50, 40));
    QVERIFY(!m_filter->isIdle());
    QCOMPARE(m_filter->isLeftHeld(), button == Qt::LeftButton);
    QCOMPARE(m_filter->isMiddleHeld(), button == Qt::MiddleButton);
    QCOMPARE(m_filter->isRightHeld(), button == Qt::RightButton);
    QTest::mouseRelease(m_widget.data(), button, {}, QPoint(60, 40));
    QCOMPARE(releaseSpy.count(), 1);
    QCOMPARE(releaseSpy.at(0).at(0).toPoint(), QPoint(60, 40));
    QVERIFY(m_filter->isIdle());
}

void TestMouseEventsToSignals::leftDragReportsFromPressAndSteps()
{
    m_filter->setLeftStep(5);
    QSignalSpy fromPress(m_filter, &MouseEventsToSignals::draggedLeftButtonFromPressPoint);
    QSignalSpy stepped(m_filter, &MouseEventsToSignals::draggedLeftButton);
    QTest::mousePress(m_widget.data(), Qt::LeftButton, {}, QPoint(100, 50));
    for (int x : { 103, 106, 104, 99, 98 })
        QTest::mouseMove(m_widget.data(), QPoint(x, 50));
    QTest::mouseRelease(m_widget.data(), Qt::LeftButton, {}, QPoint(98, 50));
    // Every move reports its distance from the press at x 100.
    QCOMPARE(ints(fromPress), QList<int>({ 3, 6, 4, -1, -2 }));
    // Steps of 5 pixels: 100 to 106 is the first (6), 106 to 99 the next (-7); the others stay short.
    QCOMPARE(ints(stepped), QList<int>({ 6, -7 }));
}

void TestMouseEventsToSignals::rightDragAsksForScaleStepsByDirection()
{
    m_filter->setRightStep(11);
    QSignalSpy up(m_filter, &MouseEventsToSignals::scaleUpRequested);
    QSignalSpy down(m_filter, &MouseEventsToSignals::scaleDownRequested);
    QSignalSpy stepped(m_filter, &MouseEventsToSignals::draggedRightButton);
    QTest::mousePress(m_widget.data(), Qt::RightButton, {}, QPoint(200, 50));
    QTest::mouseMove(m_widget.data(), QPoint(210, 50));
    QCOMPARE(stepped.count(), 0);
    QTest::mouseMove(m_widget.data(), QPoint(211, 50));
    QTest::mouseMove(m_widget.data(), QPoint(195, 50));
    QTest::mouseMove(m_widget.data(), QPoint(170, 50));
    QTest::mouseRelease(m_widget.data(), Qt::RightButton, {}, QPoint(170, 50));
    QCOMPARE(ints(stepped), QList<int>({ 11, -16, -25 }));
    QCOMPARE(down.count(), 1);
    QCOMPARE(up.count(), 2);
}

void TestMouseEventsToSignals::stepsBelowOneAreOne()
{
    m_filter->setMiddleStep(0);
    QCOMPARE(m_filter->middleStep(), 1);
    QSignalSpy stepped(m_filter, &MouseEventsToSignals::draggedMiddleButton);
    QTest::mousePress(m_widget.data(), Qt::MiddleButton, {}, QPoint(10, 10));
    QTest::mouseMove(m_widget.data(), QPoint(10, 30));
    QTest::mouseMove(m_widget.data(), QPoint(11, 30));
    QTest::mouseRelease(m_widget.data(), Qt::MiddleButton, {}, QPoint(11, 30));
    // A vertical move is no horizontal distance; one pixel across is one step.
    QCOMPARE(ints(stepped), QList<int>({ 1 }));
}

void TestMouseEventsToSignals::otherButtonsAreIgnoredWhileOneIsHeld()
{
    QSignalSpy rightPressed(m_filter, &MouseEventsToSignals::rightButtonPressed);
    QSignalSpy leftReleased(m_filter, &MouseEventsToSignals::leftButtonReleased);
    QTest::mousePress(m_widget.data(), Qt::LeftButton, {}, QPoint(10, 10));
    QTest::mousePress(m_widget.data(), Qt::RightButton, {}, QPoint(10, 10));
    QTest::mouseRelease(m_widget.data(), Qt::RightButton, {}, QPoint(10, 10));
    QCOMPARE(rightPressed.count(), 0);
    QVERIFY(m_filter->isLeftHeld());
    QTest::mouseRelease(m_widget.data(), Qt::LeftButton, {}, QPoint(10, 10));
    QCOMPARE(leftReleased.count(), 1);
    QVERIFY(m_filter->isIdle());
}

void TestMouseEventsToSignals::releaseRequestDropsTheStateWithoutAnEvent()
{
    QSignalSpy moved(m_filter, &MouseEventsToSignals::draggedRightButtonFromPressPoint);
    QTest::mousePress(m_widget.data(), Qt::RightButton, {}, QPoint(10, 10));
    QVERIFY(m_filter->isRightHeld());
    emit m_filter->releaseRightButtonRequested();
    QVERIFY(m_filter->isIdle());
    QTest::mouseMove(m_widget.data(), QPoint(40, 10));
    QCOMPARE(moved.count(), 0);
}

void TestMouseEventsToSignals::eventsItUsesAreAccepted()
{
    QWidget plain;
    MouseEventsToSignals filter;
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(5, 5), Qt::LeftButton, Qt::LeftButton, {});
    QVERIFY(filter.eventFilter(&plain, &press));
    QMouseEvent otherPress(QEvent::MouseButtonPress, QPointF(5, 5), Qt::RightButton, Qt::RightButton, {});
    QVERIFY(!filter.eventFilter(&plain, &otherPress));
    QMouseEvent release(QEvent::MouseButtonRelease, QPointF(5, 5), Qt::LeftButton, Qt::NoButton, {});
    QVERIFY(filter.eventFilter(&plain, &release));
    QMouseEvent idleMove(QEvent::MouseMove, QPointF(9, 5), Qt::NoButton, Qt::NoButton, {});
    QVERIFY(!filter.eventFilter(&plain, &idleMove));
}

QTEST_MAIN(TestMouseEventsToSignals)
#include "tst_mouseeventstosignals.moc"
