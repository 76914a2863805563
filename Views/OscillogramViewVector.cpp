#include "Views/OscillogramView.h"

// The view's entry into vector diagrams and the spectrum. Not built yet: the actions stay out of the bars.

void OscillogramView::slotLineVectorDiagram()
{
}

void OscillogramView::slotSelectedVectorDiagram()
{
}

void OscillogramView::slotSpectrumTriggered()
{
}
