#include "Views/OscillogramView.h"

// The view's entry into merging records. Not built yet: the actions stay out of the bars.

void OscillogramView::slotMergeOscillograms()
{
}
