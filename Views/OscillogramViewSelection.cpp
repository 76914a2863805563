#include "Views/OscillogramView.h"

// The view's entry into channel selection, the discretes that changed and the behaviour of a signal. Not
// built yet: the actions stay out of the bars.

void OscillogramView::slotAdvancedChannelSelectionTriggered()
{
}

void OscillogramView::slotSelectDiscretesTriggered()
{
}

void OscillogramView::slotChannelBehavior()
{
}
