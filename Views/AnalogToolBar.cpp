#include "Views/AnalogToolBar.h"

#include "Views/RowToolButton.h"

#include <QHBoxLayout>
#include <QToolButton>

AnalogToolBar::AnalogToolBar(QWidget* parent) : QWidget(parent)
{
    setUpRowToolBar(this);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(1, 1, 1, 1);
    layout->setSpacing(0);

    const auto group = [this](std::initializer_list<QToolButton*> buttons) { m_groups.append(buttons); };
    group({ addButton(QStringLiteral("pb_increaseMagnitude"), tr("Увеличить амплитуду сигнала"),
                QStringLiteral("plus")),
        addButton(QStringLiteral("pb_decreaseMagnitude"), tr("Уменьшить амплитуду сигнала"),
            QStringLiteral("minus")) });
    group({ addButton(QStringLiteral("pb_increaseHeight"), tr("Уменьшить область отображения "),
                QStringLiteral("ic_row_lower")),
        addButton(QStringLiteral("pb_decreaseHeight"), tr("Увеличить область отображения "),
            QStringLiteral("ic_row_higher")) });
    group({ addButton(QStringLiteral("pb_fitMagnitude"), tr("Масштабировать сигнал к области отображения"),
                QStringLiteral("ic_fit_magnitude")),
        addButton(QStringLiteral("pb_resetChannel"), tr("Отображение сигнала по умолчанию "),
            QStringLiteral("ic_reset_channel")) });
    QToolButton* hide
        = addButton(QStringLiteral("pb_hideChannel"), tr("Скрыть сигнал"), QStringLiteral("ic_hide_channel"));
    QToolButton* invert
        = addButton(QStringLiteral("pb_inverted"), tr("Инвертировать сигнал"), QStringLiteral("ic_invert"));
    invert->setCheckable(true);
    group({ hide, invert });

    const QList<void (AnalogToolBar::*)()> signalsInOrder { &AnalogToolBar::sigIncMag,
        &AnalogToolBar::sigDecMag, &AnalogToolBar::sigIncH, &AnalogToolBar::sigDecH,
        &AnalogToolBar::sigFitMag, &AnalogToolBar::sigReset, &AnalogToolBar::sigHide };
    for (int i = 0; i < signalsInOrder.size(); ++i)
        connect(m_groups[i / 2][i % 2], &QToolButton::clicked, this, signalsInOrder[i]);
    connect(invert, &QToolButton::toggled, this, &AnalogToolBar::sigInvert);

    // The widths with all groups, without the last one and without the last two.
    const QMargins margins = layout->contentsMargins();
    int width = margins.left() + margins.right();
    QList<int> cumulative;
    for (const auto& buttons : qAsConst(m_groups)) {
        for (QToolButton* button : buttons)
            width += button->sizeHint().width();
        cumulative << width;
    }
    m_thresholds[0] = cumulative[3];
    m_thresholds[1] = cumulative[2];
    m_thresholds[2] = cumulative[1];
}

QToolButton* AnalogToolBar::addButton(const QString& name, const QString& toolTip, const QString& icon)
{
    QToolButton* button = makeRowToolButton(this, name, toolTip, icon);
    layout()->addWidget(button);
    return button;
}

void AnalogToolBar::showGroups(int count)
{
    for (int g = 0; g < m_groups.size(); ++g) {
        for (QToolButton* button : qAsConst(m_groups[g]))
            button->setVisible(g < count);
    }
    adjustSize();
}

void AnalogToolBar::set1Stage()
{
    showGroups(3);
}

void AnalogToolBar::set2Stage()
{
    showGroups(2);
}

void AnalogToolBar::setDefaultStage()
{
    showGroups(4);
}

void AnalogToolBar::fitToWidth(int width)
{
    if (width >= defaultStageWidth())
        setDefaultStage();
    else if (width >= stage1Width())
        set1Stage();
    else
        set2Stage();
}

void AnalogToolBar::slotInvertChannel(bool isInverted)
{
    QToolButton* invert = m_groups[3][1];
    const QSignalBlocker quiet(invert);
    invert->setChecked(isInverted);
}

void AnalogToolBar::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    setRoundedMask(this);
}
