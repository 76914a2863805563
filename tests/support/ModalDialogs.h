#pragma once

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
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

// What a message box said before a test closed it.
struct SeenBox
{
    QString title;
    QString text;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
};

// Notes what the next message box says and closes it with Ok. Other modal windows (a progress
// dialog under the box) are passed over; it looks every 5 ms for up to 30 seconds.
inline void closeNextMessageBox(SeenBox& seen, int triesLeft = 6000)
{
    QTimer::singleShot(5, [&seen, triesLeft]() {
        if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            seen = { box->windowTitle(), box->text(), box->icon() };
            box->button(QMessageBox::Ok)->click();
        } else if (triesLeft > 0) {
            closeNextMessageBox(seen, triesLeft - 1);
        }
    });
}
