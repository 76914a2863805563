#include "Views/DigitalToolBar.h"

#include "Views/RowToolButton.h"

#include <QHBoxLayout>
#include <QToolButton>

DigitalToolBar::DigitalToolBar(QWidget* parent)
    : QWidget(parent)
    , m_invert(makeRowToolButton(
          this, QStringLiteral("pb_invert"), tr("Инвертировать сигнал"), QStringLiteral("ic_digital_invert")))
{
    setUpRowToolBar(this);
    m_invert->setCheckable(true);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(1, 1, 1, 1);
    layout->setSpacing(0);
    layout->addWidget(m_invert);
    connect(m_invert, &QToolButton::toggled, this, &DigitalToolBar::sigInvert);
}

void DigitalToolBar::slotInvert(bool isInvert)
{
    const QSignalBlocker quiet(m_invert);
    m_invert->setChecked(isInvert);
}
