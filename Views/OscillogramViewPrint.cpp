#include "Views/OscillogramView.h"

#include "Views/OscillogramViewModel.h"
#include "Views/Print/PrintDia.h"

// The view's entry into printing: the preview of the pages, from which the user prints.
void OscillogramView::slotPrint()
{
    if (!oscillogramViewModel()->oscillogram())
        return;
    PrintDia dialog(this, this);
    dialog.exec();
}
