#include "Views/RowToolButton.h"

#include <QIcon>
#include <QPainterPath>
#include <QRegion>
#include <QToolButton>

QToolButton* makeRowToolButton(
    QWidget* parent, const QString& objectName, const QString& toolTip, const QString& icon)
{
    auto* button = new QToolButton(parent);
    button->setObjectName(objectName);
    button->setToolTip(toolTip);
    button->setAutoRaise(true);
    button->setCursor(Qt::ArrowCursor);
    button->setIconSize(QSize(16, 16));
    QIcon pair(QStringLiteral(":/icons/%1.svg").arg(icon));
    pair.addFile(QStringLiteral(":/icons/%1_2.svg").arg(icon), QSize(), QIcon::Active);
    pair.addFile(QStringLiteral(":/icons/%1_2.svg").arg(icon), QSize(), QIcon::Normal, QIcon::On);
    button->setIcon(pair);
    return button;
}

void setUpRowToolBar(QWidget* bar)
{
    bar->setAutoFillBackground(true);
    bar->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void setRoundedMask(QWidget* bar)
{
    QPainterPath outline;
    outline.addRoundedRect(QRectF(bar->rect()), 2.0, 2.0);
    bar->setMask(QRegion(outline.toFillPolygon().toPolygon()));
}
