#include "Views/CurrentTimePositionView.h"

#include "Views/OscillogramViewModel.h"

CurrentTimePositionView::CurrentTimePositionView(QWidget* parent) : QLabel(parent)
{
}

void CurrentTimePositionView::setOscillogramViewModel(const QSharedPointer<OscillogramViewModel>& model)
{
    if (m_model)
        m_model->disconnect(this);
    m_model = model;
    if (m_model) {
        const auto model = m_model.data();
        connect(model, &OscillogramViewModel::currentSampleChanged, this,
            &CurrentTimePositionView::slotUpdateText);
        connect(
            model, &OscillogramViewModel::triggerTimeChanged, this, &CurrentTimePositionView::slotUpdateText);
        // A new record in the view has a time of its own at the same sample.
        connect(model, &OscillogramViewModel::sigWaveChanged, this, &CurrentTimePositionView::slotUpdateText);
    }
    slotUpdateText();
}

void CurrentTimePositionView::slotUpdateText()
{
    const auto record = m_model ? m_model->oscillogram() : QSharedPointer<Oscillogram>();
    if (!record) {
        clear();
        return;
    }
    const PreciseDateTime moment = record->dateTime(m_model->currentSample());
    const double fromTrigger = record->triggerTime().uSecsTo(moment) / 1000.0;
    setText(m_model->inDisplayZone(moment).toString()
        + tr("\n%1мс").arg(fromTrigger, 0, 'f', 3, QLatin1Char(' ')));
}
