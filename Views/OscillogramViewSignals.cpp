#include "Views/OscillogramView.h"

// The view's entry into computed signals. Not built yet: the actions stay out of the bars.

void OscillogramView::slotShowSignalsCalculator()
{
}

void OscillogramView::slotCalculatedWaveRepopulate(int /*countOfNewAnalogChannels*/)
{
}
