#include "Views/OscillogramView.h"

// The view's entry into signal shapes and offsets of the analogue channels. Not built yet: the actions stay
// out of the bars.

void OscillogramView::slotSetShapeFormTriggered()
{
}

void OscillogramView::slotMDifferenceTriggered()
{
}
