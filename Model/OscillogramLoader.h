#pragma once

#include "Model/LoaderResult.h"
#include "Model/Task.h"

// Base of the format readers. The thread pool never deletes a loader: whoever connected to it
// does, once it has emitted completed or error.
class KORVANE_EXPORT OscillogramLoader : public Task<LoaderResult>
{
    Q_OBJECT
public:
    OscillogramLoader(const QString& filename, QObject* parent);
    QString filename() const { return m_filename; }

private:
    QString m_filename;
};
