#include "Views/OscillogramView.h"

// The view's entry into the hodograph and its exports. Not built yet: the actions stay out of the bars.

void OscillogramView::slotHodograph()
{
}

void OscillogramView::saveHodograph(int /*format*/)
{
}
