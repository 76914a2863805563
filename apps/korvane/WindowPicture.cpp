#include "WindowPicture.h"

#include "MainWindow.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QGuiApplication>
#include <QPixmap>
#include <QScreen>
#include <QTimer>

bool grabWhenLoaded(MainWindow& window, const QString& path)
{
    QElapsedTimer timer;
    timer.start();
    while (window.pendingLoads() > 0 && timer.elapsed() < 60000)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
    // The views enable their updates and lay out on the next turns of the event loop.
    QEventLoop settle;
    QTimer::singleShot(300, &settle, &QEventLoop::quit);
    settle.exec();
    const bool onScreen = QGuiApplication::platformName() != QLatin1String("offscreen") && window.screen();
    const QPixmap picture = onScreen ? window.screen()->grabWindow(window.winId()) : window.grab();
    return picture.save(path);
}
