#include "Views/OscillogramView.h"

#include "Model/Oscillograms.h"
#include "Views/OscillogramMerge/DiaMergeSetup.h"
#include "Views/OscillogramViewPrivate.h"

#include <QMetaMethod>

// The view's entry into merging records: the dialog over the open records, and the new record
// handed to the host, or shown in a window of its own when no host listens.

namespace {
void showInOwnWindow(QSharedPointer<KorvaneSettings> settings, const QString& name)
{
    auto* window = new OscillogramView(settings);
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->setWindowTitle(name);
    window->setOscillogram(Oscillograms::instance()->get(name));
    window->initByDefault();
    window->showToolbar();
    // The merged record exists in memory only until it is saved.
    window->setIsModified(true);
    window->show();
}
} // namespace

void OscillogramView::slotMergeOscillograms()
{
    if (Oscillograms::instance()->isEmpty())
        return;
    auto* dialog = new DiaMergeSetup(this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &DiaMergeSetup::sigOscillogramMerged, this,
        [this](QSharedPointer<Oscillogram>, QString name) {
            if (isSignalConnected(QMetaMethod::fromSignal(&OscillogramView::sigOscillogramMerged)))
                emit sigOscillogramMerged(name);
            else
                showInOwnWindow(d->settings, name);
        });
    dialog->open();
}
