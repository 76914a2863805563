#include "MergeHandler.h"

#include "Views/OscillogramMerge/SampleCopier.h"

MergeHandler::MergeHandler(QObject* parent) : QObject(parent)
{
}

MergeHandler::~MergeHandler() = default;

void MergeHandler::setSources(const QList<QSharedPointer<Oscillogram>>& sources)
{
    m_sources = sources;
    m_fits = QList<bool>();
    for (int s = 0; s < sources.size(); ++s)
        m_fits.append(false);
}

int MergeHandler::scaledPre(const Oscillogram& source) const
{
    return int(source.countOfPreFailureSamples() * m_targetRate / source.sampleRate());
}

int MergeHandler::scaledPost(const Oscillogram& source) const
{
    return int(source.countOfPostFailureSamples() * m_targetRate / source.sampleRate());
}

int MergeHandler::sourceSample(qint64 sample, double sourceRate, double targetRate)
{
    return int(double(sample) * sourceRate / targetRate);
}

SimpleOscillogram& MergeHandler::simple(int source) const
{
    return static_cast<SimpleOscillogram&>(*m_sources[source]);
}

int MergeHandler::indexOfSource(const QSharedPointer<Oscillogram>& source) const
{
    for (int s = 0; s < m_sources.size(); ++s) {
        if (m_sources[s] == source)
            return s;
    }
    return -1;
}

void MergeHandler::countChannels()
{
    m_channelCounts.fill(0);
    for (const auto& item : qAsConst(m_items)) {
        const int type = item->channel()->dataType();
        if (type > DT::None && type <= DT::Digital)
            ++m_channelCounts[type];
    }
}

bool MergeHandler::reserveStore()
{
    m_builder.reset(new OscillogramDataBuilder);
    return m_builder->reserve(m_channelCounts[DT::Double], m_channelCounts[DT::Float],
        m_channelCounts[DT::Int32], m_channelCounts[DT::Int16], m_channelCounts[DT::Digital],
        qMax(0, m_totalCount));
}

void MergeHandler::takeFailures(const Oscillogram& source, int a, int b)
{
    for (const auto& failure : source.failures()) {
        const int sample = int((failure->blockNum() + b) * m_targetRate / source.sampleRate() + a);
        if (sample > m_totalCount)
            break;
        const bool taken = std::any_of(m_failures.cbegin(), m_failures.cend(),
            [sample](const QSharedPointer<Failure>& f) { return f->blockNum() == sample; });
        if (!taken)
            m_failures.append(QSharedPointer<Failure>::create(failure->reason(), sample));
    }
}

void MergeHandler::takeLines(const QList<QSharedPointer<Line>>& lines)
{
    for (const auto& line : lines) {
        const bool known = std::any_of(m_lines.cbegin(), m_lines.cend(),
            [&line](const QSharedPointer<Line>& l) { return l->name() == line->name(); });
        // A copy: the merged record must not change the lines of its sources.
        if (!known)
            m_lines.append(QSharedPointer<Line>::create(*line));
    }
}

void MergeHandler::reportRow(const QString& stage, qint64 row, qint64 total, qint64 rows)
{
    // A report per row would cost more than the copy itself; a thousandth is what a bar shows.
    const qint64 step = qMax<qint64>(1, rows / 1000);
    if (row % step != 0)
        return;
    emit progressChanged(stage, total > 0 ? double(row) / double(total) : 0.0);
    if (m_cancelCheck)
        m_cancelCheck();
}

SampleCopier& MergeHandler::copier(int rows)
{
    m_copier.reset(new SampleCopier(*m_builder, m_channelCounts, rows));
    return *m_copier;
}

void MergeHandler::buildStore(int rows)
{
    m_builder->setCountOfSamples(rows);
    m_copier.reset();
    m_store = m_builder->build();
    m_builder.reset();
}
