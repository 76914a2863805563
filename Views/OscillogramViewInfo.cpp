#include "Views/OscillogramView.h"

// The view's entry into record information and the failure list. Not built yet: the actions stay out of the
// bars.

void OscillogramView::slotShowHdrActionTriggered()
{
}

void OscillogramView::slotFailListTriggered()
{
}
