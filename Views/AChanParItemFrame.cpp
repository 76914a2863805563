#include "Views/AChanParItemFrame.h"

#include "Model/AnalogChannel.h"
#include "Settings/KorvaneSettings.h"
#include "Views/AChanParModel.h"
#include "Views/OscillogramViewModel.h"
#include "Settings/ColorStyle.h"
#include "Views/ParValueWidget.h"
#include "Views/RowColors.h"
#include "Views/SignalNameWidget.h"

#include <QFontMetrics>
#include <QPainter>
#include <QVBoxLayout>

namespace {
constexpr int kStripWidth = 3;
constexpr int kLeftMargin = kStripWidth + 3;

int fontHeight()
{
    return QFontMetrics(QFont()).height();
}
} // namespace

int AChanParItemFrame::extraPanelHeight()
{
    return (1 + AChanParModel::defaultRowCount) * fontHeight() + 1;
}

int AChanParItemFrame::compactPanelHeight()
{
    return 2 * fontHeight() + 1;
}

AChanParItemFrame::AChanParItemFrame(AChanParModel* model, QWidget* parent)
    : QWidget(parent), m_model(model), m_name(new SignalNameWidget(this)), m_values(new ParValueWidget(this))
{
    model->setParent(this);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kLeftMargin, 0, 2, 0);
    layout->setSpacing(0);
    layout->addWidget(m_name);
    layout->addWidget(m_values);
    layout->addStretch(1);
    m_name->setChannel(*model->channel(), true);
    refreshParameters();
}

int AChanParItemFrame::channelNumber() const
{
    return m_model->channelNumber();
}

int AChanParItemFrame::compactIndex() const
{
    const auto settings
        = m_model->viewModel() ? m_model->viewModel()->allSettings() : QSharedPointer<KorvaneSettings>();
    const int chosen = settings ? settings->selectedParameterForCompactMode() : 0;
    // The choice is a parameter number; its place among the shown ones counts the selected before it.
    const QVector<bool> selected = m_model->selectedParameters();
    int index = 0;
    for (int p = 0; p < chosen && p < selected.size(); ++p)
        index += selected[p] ? 1 : 0;
    return qMin(index, qMax(m_model->parameterNames(false).size() - 1, 0));
}

void AChanParItemFrame::refreshParameters()
{
    QStringList names = m_model->parameterNames(false);
    QStringList units = m_model->parameterUnits();
    if (m_compact && !names.isEmpty()) {
        const int index = compactIndex();
        names = QStringList { names[index] };
        units = QStringList { units.value(index) };
    }
    m_values->setParameters(names, units, m_compact ? 1 : qMax(m_model->rowCount(), 1));
    m_model->setPrimSecMode(m_model->viewModel() ? m_model->viewModel()->primSecMode() : 0);
    if (m_model->currentSample() >= 0)
        refreshValues(m_model->currentSample());
}

void AChanParItemFrame::refreshValues(int sample)
{
    m_model->calculate(sample);
    QVariantList values = m_model->parameterValues(sample);
    if (m_compact && !values.isEmpty())
        values = QVariantList { values.value(compactIndex()) };
    m_values->setValues(values, m_model->valueColors(values));
}

void AChanParItemFrame::setCompact(bool compact)
{
    if (m_compact == compact)
        return;
    m_compact = compact;
    refreshParameters();
}

void AChanParItemFrame::setSelected(bool selected)
{
    if (m_selected == selected)
        return;
    m_selected = selected;
    update();
}

QColor AChanParItemFrame::traceColor() const
{
    const auto& style = KV::Cfg::ColorStyle::current();
    const AnalogChannel& channel = *m_model->channel();
    if (channel.isSelected())
        return QColor::fromRgba(style.selectedTrace);
    if (const auto custom = channel.getCustomColor())
        return *custom;
    return QColor::fromRgba(style.phaseColor(channel.phaseNumber()));
}

void AChanParItemFrame::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const RowColors colors = RowColors::current();
    painter.fillRect(rect(), m_selected ? colors.selectedPanel : colors.panelBackground);
    painter.fillRect(0, 0, kStripWidth, height(), traceColor());
}
