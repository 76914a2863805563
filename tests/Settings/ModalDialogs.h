#pragma once

#include <QApplication>
#include <QTimer>
#include <QWidget>

#include <functional>

// Acts on the next modal window once it is open: the action runs from the window's own event loop.
// Looks again every 10 ms, up to two seconds, so that a window still being shown is not missed.
inline void whenModalOpens(std::function<void(QWidget*)> action, int triesLeft = 200)
{
    QTimer::singleShot(10, [action, triesLeft]() {
        QWidget* modal = QApplication::activeModalWidget();
        if (modal)
            action(modal);
        else if (triesLeft > 0)
            whenModalOpens(action, triesLeft - 1);
    });
}
