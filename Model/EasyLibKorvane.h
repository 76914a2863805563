#pragma once

#include "Model/LoaderResult.h"

#include <QObject>

#include <functional>

class OscillogramLoader;
class OscillogramView;
class QWidget;

// The entry of a host: register the meta-types once, then open files.
class KORVANE_EXPORT EasyLibKorvane : public QObject
{
    Q_OBJECT
public:
    // Registers the meta-types that queued task signals carry; call once before the first open.
    static void initialize();
    static bool isWave(const QString& filename);
    // Modal: a progress dialog in a nested event loop; true when the record was loaded and
    // handed to the callback. Failures are shown in a box.
    static bool open(const QString& filename, QWidget* parent, std::function<void(LoaderResult&)> callback);
    // Asynchronous, without a dialog: the loader runs on the thread pool and the record goes into
    // the view when it is done. Returns the loader, whose signals tell the progress, or null when
    // the format is refused; it starts on the next turn of the event loop, so that the caller can
    // connect to it first. A failure is shown in a box; the view stays empty then.
    static OscillogramLoader* open(const QString& filename, QWidget* parent, OscillogramView* view);
    // Synchronous on the calling thread, without widgets. A failed load gives a null record and
    // leaves errorText untouched; only an unknown format sets it.
    static QSharedPointer<Oscillogram> open(const QString& filename, QString& errorText);

private:
    EasyLibKorvane() = default;
};
