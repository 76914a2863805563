#include "Views/OscillogramView.h"

// The view's entry into printing. Not built yet: the actions stay out of the bars.

void OscillogramView::slotPrint()
{
}
