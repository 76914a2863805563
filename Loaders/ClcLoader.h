#pragma once

#include "Model/ClcOscillogram.h"
#include "Model/OscillogramLoader.h"

class OscillogramDataBuilder;
class QFile;
class QTextDecoder;

// Reads a .clc archive: a header, one record per channel, then rows of three doubles a channel.
// Only an unreadable file, a short header and a wrong signature stop it; cut channel records and
// rows are taken as far as they go.
class KORVANE_EXPORT ClcLoader : public OscillogramLoader
{
    Q_OBJECT
public:
    ClcLoader(const QString& file, QObject* parent);

protected:
    LoaderResult work() override;

private:
    struct Header;

    Header readHeader(QFile& file);
    QList<QSharedPointer<ClcAnalogChannel>> readChannels(QFile& file, int count, QTextDecoder& decoder);
    int readRows(QFile& file, int channelCount, OscillogramDataBuilder& builder);

    QSharedPointer<ClcOscillogram> m_oscillogram;
};
