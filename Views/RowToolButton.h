#pragma once

#include <QString>

class QToolButton;
class QWidget;

// A button of the row tool bars: named, with a tool tip, the icon pair ":/icons/<icon>.svg" and
// "<icon>_2.svg" for its active state, and the arrow cursor, so that the plot's cursor does not
// show through the bar.
QToolButton* makeRowToolButton(
    QWidget* parent, const QString& objectName, const QString& toolTip, const QString& icon);

// Makes a row tool bar a small opaque panel that keeps the size of its buttons, since it stands
// over the plot of the row.
void setUpRowToolBar(QWidget* bar);

// Rounds the corners of the bar with a radius of 2 pixels.
void setRoundedMask(QWidget* bar);
